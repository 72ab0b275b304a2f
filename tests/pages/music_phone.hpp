// A phone with the library, seen from the music pages of its two toolbars. W = 375, H = 812.
#pragma once

#include "pages/music_page.hpp"
#include "tests/library_phone.hpp"

namespace vantori::tests {

inline constexpr const char* musicApplication = "com.apple.Music";
inline constexpr const char* otherApplication = "com.example.notes";

class MusicPhone : public LibraryPhone {
  protected:
    static VNTMediaPlayerViewController page() {
        return VNTSBToolBarController::shared().page<VNTMediaPlayerViewController>();
    }
    static VNTMediaPlayerViewController applicationPage() {
        return VNTToolBarController::shared().page<VNTMediaPlayerViewController>();
    }

    template <FixedString name, class T = Object>
    static T get() {
        return page().send<name, T>();
    }
    static std::string textOf(UILabel label) {
        NSString text = label.text();
        return text ? text.utf8() : "(none)";
    }
    static std::string album() { return textOf(get<"album", UILabel>()); }
    static std::string title() { return textOf(get<"mediaTitle", UILabel>()); }
    static std::string subtitle() { return textOf(get<"subTitle", UILabel>()); }
    static UIImage artwork() { return get<"albumArtworkImageView", UIImageView>().image(); }
    static std::string artworkIdentifier() {
        NSString identifier = get<"cachedArtworkIdentifier", NSString>();
        return identifier ? identifier.utf8() : "(none)";
    }
    static UIImage named(const char* name) {
        std::string path = std::string("/Library/Application Support/Vantori/") + name + ".png";
        return UIImage::named(NSString::from(path.c_str()));
    }
    static UIImage imageOn(UIButton button) { return button.send<"imageForState:", UIImage>(0UL); }
    static UIImage middleImage() { return imageOn(get<"middleButton", UIButton>()); }
    static bool showsPause() { return middleImage() && middleImage() == named("Pause"); }
    static bool showsPlay() { return middleImage() && middleImage() == named("Play"); }
    static CGAffineTransform transformOf(UIView view) {
        return view.send<"transform", CGAffineTransform>();
    }

    void play(const char* songTitle, const char* artist, const char* songAlbum,
              const char* artworkId, const char* bundle = otherApplication) {
        phone_->play({songTitle, artist, songAlbum, artworkId, bundle});
    }
    // Blocks of the main queue run.
    void turn() { phone_->wait(0.05); }
    long called(const char* cls, const char* message) const {
        return phone_->calledCount(cls, message);
    }
    void openToolbar() {
        phone_->grabber(simulator::PullPhase::began, 60, 10, 0);
        phone_->grabber(simulator::PullPhase::ended, 60, 100, 0);
        phone_->wait(1);
    }
};

}  // namespace vantori::tests
