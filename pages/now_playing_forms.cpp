#include "pages/now_playing_forms.hpp"

#include "pages/media_remote_source.hpp"
#include "platform/form.hpp"

namespace vantori {

namespace {

struct SourceFunctions {
    Strong<MPUNowPlayingController> (*create)();
};

constexpr SourceFunctions systemController{[] { return create<MPUNowPlayingController>(); }};
constexpr SourceFunctions ownSource{
    [] { return Strong<MPUNowPlayingController>(createMediaRemoteSource()); }};

using NowPlaying = Feature<
    "now playing",
    Form<"MPUNowPlayingController", systemController, ClassNamed<"MPUNowPlayingController">>,
    Form<"MediaRemote", ownSource, media_remote::GetInfo, media_remote::Register,
         media_remote::InfoDidChange, media_remote::IsPlaying, media_remote::Application,
         media_remote::BundleIdentifier>>;

}  // namespace

Strong<MPUNowPlayingController> createNowPlayingSource() {
    const SourceFunctions* form = NowPlaying::taken();
    return form ? form->create() : Strong<MPUNowPlayingController>();
}

namespace media_remote {

void giveUp(const char* reason) { NowPlaying::switchOff(reason); }

}  // namespace media_remote

}  // namespace vantori
