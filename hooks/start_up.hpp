// Start-up: runs once, when SpringBoard loads the library, before SpringBoard has finished
// launching.
#pragma once

namespace vantori {

// With "enabled" false nothing happens at all: no class, no hook, no observer.
void startUp();

// The part of it that makes the library's classes.
void registerClasses();

}  // namespace vantori
