// What plays on the phone, and the private views and controllers around it. All may be missing.
#pragma once

#include "platform/uikit_controls.hpp"

namespace platform {

// Tells what is playing. Its delegate is not retained and may be called on any thread.
struct MPUNowPlayingController : Object {
    static constexpr FixedString name{"MPUNowPlayingController"};
    using Object::Object;
    void setDelegate(Object delegate) const { send<"setDelegate:">(delegate); }
    // May be empty, and may lack any entry.
    NSDictionary info() const { return send<"currentNowPlayingInfo", NSDictionary>(); }
    UIImage artwork() const { return send<"currentNowPlayingArtwork", UIImage>(); }
    bool isPlaying() const { return send<"isPlaying", bool>(); }
    // Bundle identifier of the application that plays.
    NSString applicationId() const { return send<"nowPlayingAppDisplayID", NSString>(); }
    bool isSystemMediaApplication() const { return send<"nowPlayingAppIsSystemMediaApp", bool>(); }
};

// Scrolls what is wider than itself. What scrolls is put into its content view.
struct MPUMarqueeView : UIView {
    static constexpr FixedString name{"MPUMarqueeView"};
    using UIView::UIView;
    // Not on 11.0 to 11.2; titles scroll there all the same.
    void setAnimationReferenceView(UIView view) const {
        sendIfAnswered<"setAnimationReferenceView:">(view);
    }
    void setViewForContentSize(UIView view) const { send<"setViewForContentSize:">(view); }
    void setMarqueeEnabled(bool enabled) const { send<"setMarqueeEnabled:">(enabled); }
};

struct SBMediaController : Object {
    static constexpr FixedString name{"SBMediaController"};
    using Object::Object;
    static SBMediaController shared() {
        return sendClass<SBMediaController, "sharedInstance", SBMediaController>();
    }
};

}  // namespace platform
