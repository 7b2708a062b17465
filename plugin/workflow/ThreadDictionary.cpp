#include "workflow/ThreadDictionary.h"

#include "platform/Registry.h"

namespace vorn {

ThreadDictionary& ThreadDictionary::sharedInstance() { return Registry::shared<ThreadDictionary>(); }

}  // namespace vorn
