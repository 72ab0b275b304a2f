// What the glyph packages of the phone show in each of their states. The states with a colour of
// their own are meant for a light ground, the white ones for a dark one; those of the sliders serve as
// masks, so that their colour does not matter.
#include "simulator/services/packages.hpp"

namespace simulator {

namespace {

constexpr int white = 255, ink = 28;

#define WHITE white, white, white
#define INK ink, ink, ink
#define RED 255, 59, 48

constexpr GlyphPart lightStyle[]{{"appearance", 1, INK}};
constexpr GlyphPart darkStyle[]{{"appearance", 1, WHITE}};
constexpr GlyphState style[]{{"light", lightStyle}, {"dark", darkStyle}};

constexpr GlyphPart locked[]{{"orientation-lock", 1, RED}};
constexpr GlyphPart unlocked[]{{"orientation-lock.open", 1, WHITE}};
constexpr GlyphState orientation[]{{"unlocked", unlocked}, {"locked", locked}};

constexpr GlyphPart silent[]{{"bell.slash", 1, RED}};
constexpr GlyphPart ringer[]{{"bell", 1, WHITE}};
constexpr GlyphState mute[]{{"ringer", ringer}, {"silent", silent}};

constexpr GlyphPart saving[]{{"low-power.case", 1, INK}, {"low-power.charge", 0.4, 255, 190, 0}};
constexpr GlyphPart notSaving[]{{"low-power.case", 1, WHITE}, {"low-power.charge", 0.4, WHITE}};
constexpr GlyphState lowPower[]{{"*", notSaving}, {"enabled", saving}};

constexpr GlyphPart quiet[]{{"moon", 1, 88, 86, 214}};
constexpr GlyphPart disturbed[]{{"moon", 1, WHITE}};
constexpr GlyphState doNotDisturb[]{{"off", disturbed}, {"on", quiet}};

// Three waves at most; the first needs no more than a whisper.
constexpr GlyphPart noSound[]{{"speaker", 0, WHITE}};
constexpr GlyphPart lowSound[]{{"speaker", 0.1, WHITE}};
constexpr GlyphPart halfSound[]{{"speaker", 0.5, WHITE}};
constexpr GlyphPart fullSound[]{{"speaker", 1, WHITE}};
constexpr GlyphState volume[]{
    {"mute", noSound}, {"min", lowSound}, {"half", halfSound}, {"full", fullSound}};

constexpr GlyphPart noBuds[]{{"airpods.sound", 0, WHITE}};
constexpr GlyphPart lowBuds[]{{"airpods.sound", 0.1, WHITE}};
constexpr GlyphPart halfBuds[]{{"airpods.sound", 0.5, WHITE}};
constexpr GlyphPart fullBuds[]{{"airpods.sound", 1, WHITE}};
constexpr GlyphState earbuds[]{
    {"mute", noBuds}, {"min", lowBuds}, {"half", halfBuds}, {"full", fullBuds}};

constexpr GlyphPart dimSun[]{{"sun", 0, WHITE}};
constexpr GlyphPart midSun[]{{"sun", 0.5, WHITE}};
constexpr GlyphPart fullSun[]{{"sun", 1, WHITE}};
constexpr GlyphState brightness[]{{"min", dimSun}, {"mid", midSun}, {"full", fullSun}};

#undef WHITE
#undef INK
#undef RED

constexpr GlyphPackage packages[]{
    {"/System/Library/ControlCenter/Bundles/AppearanceModule.bundle/StyleMode.ca", style},
    {"/System/Library/ControlCenter/Bundles/OrientationLockModule.bundle/OrientationLock.ca",
     orientation},
    {"/System/Library/ControlCenter/Bundles/MuteModule.bundle/Mute.ca", mute},
    {"/System/Library/ControlCenter/Bundles/LowPowerModule.bundle/LowPower.ca", lowPower},
    {"/System/Library/ControlCenter/Bundles/DoNotDisturbModule.bundle/DoNotDisturb.ca",
     doNotDisturb},
    {"/System/Library/ControlCenter/Bundles/DisplayModule.bundle/Brightness.ca", brightness},
    {"/System/Library/PrivateFrameworks/MediaControls.framework/Volume.ca", volume},
    {"/System/Library/PrivateFrameworks/MediaControls.framework/VolumeAirPods.ca", earbuds},
};

}  // namespace

std::span<const GlyphPackage> glyphPackages() { return packages; }

}  // namespace simulator
