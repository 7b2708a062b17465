#include "host/surface/InbandTrick.h"

#include "platform/Registry.h"

namespace vorn {

namespace {

struct ExceptionMark {
  bool g_isException = false;
};

}  // namespace

bool InbandTrick::isException() { return Registry::shared<ExceptionMark>().g_isException; }

InbandTrick::InbandTrick() { Registry::shared<ExceptionMark>().g_isException = true; }

InbandTrick::~InbandTrick() { Registry::shared<ExceptionMark>().g_isException = false; }

}  // namespace vorn
