// What plays, from iOS 14 on, where there is no MPUNowPlayingController: MediaRemote says what, when it
// is asked, and SpringBoard's media controller says who and whether. The object answers the six questions
// of that controller and tells its delegate of changes as it does.
//
// MediaRemote answers later and in a block. An answer that another one has overtaken, or that comes again,
// changes nothing; nothing at all means that nothing plays. Who answers none of many questions is not
// asked any more.
#pragma once

#include "platform/core_foundation.hpp"
#include "platform/dispatch.hpp"
#include "platform/form.hpp"
#include "platform/now_playing.hpp"
#include "platform/springboard.hpp"

namespace vantori {

using namespace platform;

namespace media_remote {

inline constexpr FixedString library{
    "/System/Library/PrivateFrameworks/MediaRemote.framework/MediaRemote"};
using Answer = BlockRef<void(CFDictionaryRef)>;

using GetInfo =
    LibraryFunction<library, "MRMediaRemoteGetNowPlayingInfo", void(dispatch_queue_s*, Answer)>;
// SpringBoard has registered itself before; again does no harm.
using Register = LibraryFunction<library, "MRMediaRemoteRegisterForNowPlayingNotifications",
                                 void(dispatch_queue_s*)>;
using InfoDidChange = LibraryString<library, "kMRMediaRemoteNowPlayingInfoDidChangeNotification">;
using IsPlaying = InstanceMethod<"SBMediaController", "isPlaying", bool()>;
using Application = InstanceMethod<"SBMediaController", "nowPlayingApplication", SBApplication()>;
using BundleIdentifier = InstanceMethod<"SBApplication", "bundleIdentifier", NSString()>;

// Turns the feature off.
void giveUp(const char* reason);

}  // namespace media_remote

struct VNTMediaRemoteSource : MPUNowPlayingController {
    static constexpr FixedString name{"VNTMediaRemoteSource"};
    using MPUNowPlayingController::MPUNowPlayingController;
};

// Asks at once. Only where all of the above is there.
Strong<VNTMediaRemoteSource> createMediaRemoteSource();

}  // namespace vantori
