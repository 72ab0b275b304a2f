// Sending messages as code for arm64 iOS does: objc_msgSend leaves the arguments where they are and
// jumps to the implementation. A message to nothing answers zero in every register of a result.
#pragma once

#if defined(__aarch64__)

extern "C" {
void vantoriMessage();
// Both take a structure {receiver, class} first: the lookup starts at that class, or above it.
void vantoriMessageSuper();
void vantoriMessageSuper2();
// NSLog with its variable arguments on the stack.
void vantoriLog();
}

#endif
