#include "simulator/services/media_remote.hpp"

#include <array>

#include "platform/core_foundation.hpp"
#include "platform/dispatch.hpp"
#include "simulator/rendering/cover_art.hpp"
#include "simulator/rendering/png.hpp"
#include "simulator/runtime/system_libraries.hpp"
#include "simulator/services/answers.hpp"
#include "simulator/services/media_player.hpp"
#include "simulator/uikit/classes.hpp"
#include "simulator/uikit/raise.hpp"

namespace simulator {

namespace {

using Change = MediaPlayer::Change;

constexpr const char* mediaRemote =
    "/System/Library/PrivateFrameworks/MediaRemote.framework/MediaRemote";
constexpr double artworkScale = 2;  // pixels per point

// Clients that registered for the notifications; the queue that they name is always the main one.
int registrations = 0;
int questions = 0;

NSNumber number(double value) { return sendClass<NSNumber, "numberWithDouble:", NSNumber>(value); }

// Of the picture that was asked for last.
Object artworkData(const std::string& artworkId) {
    static auto& kept = *new std::pair<std::string, Strong<Object>>;
    if (kept.first != artworkId) {
        const auto picture = rendering::coverPicture(artworkId, artworkSide);
        const auto bytes = rendering::encodePng(picture->raster(artworkScale));
        Object cls(classObject(objc_getClass("NSData")));
        kept = {artworkId, retained(cls.send<"dataWithBytes:length:", Object>(
                               static_cast<const void*>(bytes.data()),
                               static_cast<unsigned long>(bytes.size())))};
    }
    return kept.second;
}

// Nothing when nothing is loaded.
Strong<NSDictionary> nowPlayingInfo() {
    const MediaPlayer& player = MediaPlayer::shared();
    const Track* track = player.track();
    if (!track) return {};
    Object mutableDictionary(classObject(objc_getClass("NSMutableDictionary")));
    auto info = mutableDictionary.send<"dictionary", NSDictionary>();
    auto add = [info](NSString key, Object value) {
        if (value) info.send<"setObject:forKey:">(value, key);
    };
    auto addText = [add](NSString key, const std::string& value) {
        if (!value.empty()) add(key, string(value));
    };
    addText("kMRMediaRemoteNowPlayingInfoTitle"_ns, track->title);
    addText("kMRMediaRemoteNowPlayingInfoArtist"_ns, track->artist);
    addText("kMRMediaRemoteNowPlayingInfoAlbum"_ns, track->album);
    addText("kMRMediaRemoteNowPlayingInfoArtworkIdentifier"_ns, track->artworkId);
    if (!track->artworkId.empty()) {
        add("kMRMediaRemoteNowPlayingInfoArtworkData"_ns, artworkData(track->artworkId));
        add("kMRMediaRemoteNowPlayingInfoArtworkMIMEType"_ns, "image/png"_ns);
    }
    add("kMRMediaRemoteNowPlayingInfoDuration"_ns, number(track->seconds));
    add("kMRMediaRemoteNowPlayingInfoElapsedTime"_ns, number(player.position()));
    add("kMRMediaRemoteNowPlayingInfoPlaybackRate"_ns, number(player.isPlaying() ? 1 : 0));
    add("kMRMediaRemoteNowPlayingInfoIsMusicApp"_ns,
        NSNumber::fromInt(player.application() == MediaPlayer::systemApplication));
    return retained(info);
}

void getNowPlayingInfo(dispatch_queue_s*, BlockRef<void(CFDictionaryRef)> block) {
    ++questions;
    const KeptBlock<void(CFDictionaryRef)> kept(block);
    const auto info = serviceManner().failing ? Strong<NSDictionary>() : nowPlayingInfo();
    answer([kept, info] { kept(static_cast<CFDictionaryRef>(info.get())); });
}

void getIsPlaying(dispatch_queue_s*, BlockRef<void(unsigned char)> block) {
    const KeptBlock<void(unsigned char)> kept(block);
    const bool playing = MediaPlayer::shared().isPlaying();
    answer([kept, playing] { kept(static_cast<unsigned char>(playing)); });
}

void getProcess(dispatch_queue_s*, BlockRef<void(int)> block) {
    const KeptBlock<void(int)> kept(block);
    const int process = MediaPlayer::shared().process();
    answer([kept, process] { kept(process); });
}

void registerForNotifications(dispatch_queue_s*) { ++registrations; }

// The constants' texts are their own names.
id* nameOf(Change change) {
    static std::array names{
        "kMRMediaRemoteNowPlayingApplicationDidChangeNotification"_ns.get(),
        "kMRMediaRemoteNowPlayingApplicationIsPlayingDidChangeNotification"_ns.get(),
        "kMRMediaRemoteNowPlayingInfoDidChangeNotification"_ns.get(),
    };
    return &names.at(static_cast<std::size_t>(change));
}

// Playing or not and who plays are SpringBoard's to be told of (media.cpp); what plays goes to all.
void tell(Change change) {
    if (change != Change::track || registrations == 0) return;
    auto post = [change] { NSNotificationCenter::defaultCenter().post(NSString(*nameOf(change))); };
    if (serviceManner().onOtherThread) {
        answer(post);
    } else {
        post();
    }
}

}  // namespace

int questionsToMediaRemote() { return questions; }

void exportMediaRemote() {
    exportFunction(mediaRemote, "MRMediaRemoteGetNowPlayingInfo", &getNowPlayingInfo);
    exportFunction(mediaRemote, "MRMediaRemoteGetNowPlayingApplicationIsPlaying", &getIsPlaying);
    exportFunction(mediaRemote, "MRMediaRemoteGetNowPlayingApplicationPID", &getProcess);
    exportFunction(mediaRemote, "MRMediaRemoteRegisterForNowPlayingNotifications",
                   &registerForNotifications);
    exportSymbol(mediaRemote, "kMRMediaRemoteNowPlayingApplicationDidChangeNotification",
                 nameOf(Change::application));
    exportSymbol(mediaRemote, "kMRMediaRemoteNowPlayingApplicationIsPlayingDidChangeNotification",
                 nameOf(Change::playState));
    exportSymbol(mediaRemote, "kMRMediaRemoteNowPlayingInfoDidChangeNotification",
                 nameOf(Change::track));
    MediaPlayer::shared().listen(&tell);
}

}  // namespace simulator
