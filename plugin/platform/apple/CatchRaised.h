#pragma once

#include <objc/objc.h>

#ifdef __cplusplus
extern "C" {
#endif

// Runs the body and gives what it raised, retained for the caller; nil when it raised nothing. C++ exceptions
// pass.
//
// In plain Objective-C: GNU's compiler gives an @catch of Objective-C++ something else than the object.
id vnCatchRaised(void (*body)(void* context), void* context);

#ifdef __cplusplus
}
#endif
