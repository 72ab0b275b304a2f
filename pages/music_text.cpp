#include "pages/music_text.hpp"

namespace vantori {

namespace {

// Stands in for whatever an item does not tell.
NSString fallback() { return "Music"_ns; }
// Five blanks behind every scrolling text.
NSString gap() { return "     "_ns; }

// The idle text of the album ends in nine blanks: deliberate.
constexpr MusicLine lines[] = {
    {&MusicState::album, &MusicState::albumMarquee,
     [] { return "kMRMediaRemoteNowPlayingInfoAlbum"_ns; }, [] { return "Vantori         "_ns; }},
    {&MusicState::title, &MusicState::titleMarquee,
     [] { return "kMRMediaRemoteNowPlayingInfoTitle"_ns; }, [] { return "Music     "_ns; }},
    {&MusicState::subtitle, &MusicState::subtitleMarquee,
     [] { return "kMRMediaRemoteNowPlayingInfoArtist"_ns; },
     [] { return "Click the play button to play.     "_ns; }},
};

// What the item tells of itself on that line; empty when it tells nothing.
NSString told(const MusicLine& line, NSDictionary info) {
    return info.at(line.key()).send<"description", NSString>();
}

bool tellsNothing(NSDictionary info) {
    for (const MusicLine& line : lines) {
        if (told(line, info)) return false;
    }
    return true;
}

NSString orFallback(NSString text) { return text ? text : fallback(); }

NSString withGap(NSString text) { return text.send<"stringByAppendingString:", NSString>(gap()); }

}  // namespace

std::span<const MusicLine, 3> musicLines() { return lines; }

void showPlainText(VNTMediaPlayerViewController page, NSDictionary info) {
    for (const MusicLine& line : lines) {
        (musicState(page).*line.label).setText(orFallback(told(line, info)));
    }
}

void showScrollingText(VNTMediaPlayerViewController page, NSDictionary info) {
    const bool idle = tellsNothing(info);
    for (const MusicLine& line : lines) {
        NSString text = idle ? line.idle() : withGap(orFallback(told(line, info)));
        (musicState(page).*line.label).setText(text);
    }
    for (const MusicLine& line : lines) (musicState(page).*line.label).sizeToFit();
}

}  // namespace vantori
