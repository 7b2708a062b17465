#pragma once

namespace vorn {

// Takes a new descriptor over and gives the same file under a number above the standard three, closed in programs
// that are started. -1 for -1, and when the system has no number left.
//
// A host may have closed its standard input or output. A new file would get that number: 0 passes for none here,
// and what is meant for the standard output would be written into the file.
int highDescriptor(int descriptor);

}  // namespace vorn
