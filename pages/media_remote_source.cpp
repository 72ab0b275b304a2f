#include "pages/media_remote_source.hpp"

#include "platform/definition.hpp"

namespace vantori {

namespace {

using Source = VNTMediaRemoteSource;

// Questions without any answer after which MediaRemote counts as silent.
constexpr unsigned long patience = 8;

struct SourceState {
    Object delegate;  // not owned
    Strong<NSDictionary> info;
    Strong<UIImage> artwork;
    bool isArtworkMade;
    // Questions are numbered from 1.
    unsigned long asked;
    unsigned long answered;  // the latest whose answer came
    bool isSilent;
};

SourceState& stateIn(Source self) { return stateOf<SourceState>(self); }

void tellDelegate(Source self) {
    const SourceState& state = stateIn(self);
    constexpr FixedString message{"nowPlayingController:nowPlayingInfoDidChange:"};
    state.delegate.sendIfAnswered<message>(self, NSDictionary(state.info));
}

// On the main thread.
void take(Source self, unsigned long question, const Strong<NSDictionary>& info) {
    SourceState& state = stateIn(self);
    if (question <= state.answered) return;
    state.answered = question;
    const bool anythingNew = info || state.info;
    state.info = info;
    state.artwork = Strong<UIImage>();
    state.isArtworkMade = false;
    if (anythingNew) tellDelegate(self);
}

void ask(Source self) {
    SourceState& state = stateIn(self);
    if (state.isSilent) return;
    if (state.asked - state.answered >= patience) {
        state.isSilent = true;
        return media_remote::giveUp("MediaRemote does not answer");
    }
    const unsigned long question = ++state.asked;
    auto answer =
        block<void(CFDictionaryRef)>([self = retained(self), question](CFDictionaryRef answered) {
            auto info = retained(NSDictionary(static_cast<id>(const_cast<void*>(answered))));
            onMainQueue([self, question, info] { take(self, question, info); });
        });
    media_remote::GetInfo::call(&_dispatch_main_q, answer);
}

// Comes on any thread.
void infoDidChange(Source self, Object) {
    onMainQueue([self = retained(self)] { ask(self); });
}

NSDictionary info(Source self) { return stateIn(self).info; }

template <Handle T>
T entry(Source self, NSString key) {
    Object value = stateIn(self).info.at(key);
    return value.isKindOfClass(classOf<T>()) ? as<T>(value) : T();
}

UIImage artwork(Source self) {
    SourceState& state = stateIn(self);
    if (!state.isArtworkMade) {
        state.isArtworkMade = true;
        auto data = entry<NSData>(self, "kMRMediaRemoteNowPlayingInfoArtworkData"_ns);
        if (data) state.artwork = retained(UIImage::withData(data));
    }
    return state.artwork;
}

bool isPlaying(Source) { return media_remote::IsPlaying::send(SBMediaController::shared()); }

NSString applicationId(Source) {
    const SBApplication application = media_remote::Application::send(SBMediaController::shared());
    return media_remote::BundleIdentifier::send(application);
}

bool isSystemMediaApplication(Source self) {
    const auto flag = entry<NSNumber>(self, "kMRMediaRemoteNowPlayingInfoIsMusicApp"_ns);
    if (flag) return flag.send<"boolValue", bool>();
    return applicationId(self).equals("com.apple.Music"_ns);
}

void registerSource() {
    define<Source, Object, SourceState>()
        .property<"delegate", &SourceState::delegate>()
        .method<"currentNowPlayingInfo", &info>()
        .method<"currentNowPlayingArtwork", &artwork>()
        .method<"isPlaying", &isPlaying>()
        .method<"nowPlayingAppDisplayID", &applicationId>()
        .method<"nowPlayingAppIsSystemMediaApp", &isSystemMediaApplication>()
        .method<"nowPlayingInfoDidChange:", &infoDidChange>();
}

}  // namespace

Strong<VNTMediaRemoteSource> createMediaRemoteSource() {
    registerSource();
    auto source = create<Source>();
    NSNotificationCenter::defaultCenter().addObserver(
        source, selector<"nowPlayingInfoDidChange:">(), media_remote::InfoDidChange::value());
    media_remote::Register::call(&_dispatch_main_q);
    ask(source);
    return source;
}

}  // namespace vantori
