#pragma once

#include <objc/objc.h>

#ifdef __cplusplus
extern "C" {
#endif

// Makes the toolkit's application; false where its display cannot be reached, for which the toolkit raises.
//
// In plain Objective-C: what is raised does not find an @catch of GNU's Objective-C++.
BOOL vnMakeApplication(void);

#ifdef __cplusplus
}
#endif
