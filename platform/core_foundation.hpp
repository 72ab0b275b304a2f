// CoreFoundation's C functions: the Darwin notify centre and the preferences interface.
#pragma once

#include "platform/foundation.hpp"

extern "C" {
using CFTypeRef = const void*;
using CFStringRef = const void*;
using CFDictionaryRef = const void*;
using CFPropertyListRef = const void*;
struct CFNotificationCenter;
using CFNotificationCenterRef = CFNotificationCenter*;
using CFNotificationCallback = void (*)(CFNotificationCenterRef center, void* observer,
                                        CFStringRef name, const void* object,
                                        CFDictionaryRef userInfo);

CFNotificationCenterRef CFNotificationCenterGetDarwinNotifyCenter();
void CFNotificationCenterAddObserver(CFNotificationCenterRef center, const void* observer,
                                     CFNotificationCallback callback, CFStringRef name,
                                     const void* object, long suspensionBehavior);
void CFNotificationCenterPostNotification(CFNotificationCenterRef center, CFStringRef name,
                                          const void* object, CFDictionaryRef userInfo,
                                          unsigned char deliverImmediately);
unsigned char CFPreferencesAppSynchronize(CFStringRef applicationId);
CFPropertyListRef CFPreferencesCopyAppValue(CFStringRef key, CFStringRef applicationId);
void CFRelease(CFTypeRef object);
}

namespace platform {

inline constexpr long suspensionBehaviorCoalesce = 2;

// Delivered on the main run loop, never inside the post.
inline void observeDarwin(NSString name, CFNotificationCallback callback) {
    CFNotificationCenterAddObserver(CFNotificationCenterGetDarwinNotifyCenter(), nullptr, callback,
                                    name.get(), nullptr, suspensionBehaviorCoalesce);
}

inline void postDarwin(NSString name) {
    CFNotificationCenterPostNotification(CFNotificationCenterGetDarwinNotifyCenter(), name.get(),
                                         nullptr, nullptr, true);
}

// Writes pending changes and refreshes what was cached of the domain.
inline void synchronizePreferences(NSString domain) { CFPreferencesAppSynchronize(domain.get()); }

// The preferences' own value for the key; empty when there is none.
inline Strong<Object> preferenceValue(NSString key, NSString domain) {
    return adopted(Object(
        static_cast<id>(const_cast<void*>(CFPreferencesCopyAppValue(key.get(), domain.get())))));
}

}  // namespace platform
