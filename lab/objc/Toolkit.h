#pragma once

// The toolkit in which the host stands: the real one for the desktop, and stand-ins elsewhere. Both know the same
// names, and the host uses nothing that only one of them has.

#ifdef VORNLAB_APPKIT
#import <AppKit/AppKit.h>
#else
#import "lab/objc/standins/StandIns.h"
#endif
