// What a phone is before it boots, and the files that can also be changed later.
#include <array>
#include <nlohmann/json.hpp>

#include "simulator/scenario/known_names.hpp"
#include "simulator/scenario/line.hpp"
#include "simulator/scenario/statements.hpp"

namespace simulator::scenario {
namespace {

constexpr auto before = Phase::setup;
constexpr auto always = Phase::always;

constexpr std::array<Form, 25> forms{{
    {"device IDENT", before, "machine identifier, as uname reports it (iPhone10,3)",
     [](Line& line) { line.phone().device(line.word("IDENT")); }},
    {"screen W H SCALE", before, "overrides the device's screen, in points",
     [](Line& line) {
         line.phone().screen(line.number("W"), line.number("H"), line.number("SCALE"));
     }},
    {"system X.Y", before, "system version (13.3)",
     [](Line& line) { line.phone().system(line.word("X.Y")); }},
    {"real", before, "only the classes and methods that real systems of its version have",
     [](Line& line) { line.phone().real(); }},
    {"homebutton yes|no", before, "overrides whether there is a home button",
     [](Line& line) { line.phone().homeButton(line.chose("yes")); }},
    {"setting KEY none", always, "takes KEY out of the settings file",
     [](Line& line) { line.phone().setting(line.word("KEY"), std::nullopt); }},
    {"setting KEY JSON", always, "puts KEY in the settings file and posts nothing",
     [](Line& line) {
         line.phone().setting(line.word("KEY"), line.json("JSON"));
         if (const auto mistake = mistakeInSetting(line.word("KEY")))
             line.remark(*mistake + "; it is written all the same");
     }},
    {"plist PATH JSON", always, "writes PATH on the phone as a property list",
     [](Line& line) { line.phone().plist(line.word("PATH"), line.json("JSON")); }},
    {"file PATH TEXT", always, "writes PATH on the phone with exactly these bytes",
     [](Line& line) { line.phone().file(line.word("PATH"), line.word("TEXT")); }},
    {"delete PATH", always, "removes PATH from the phone",
     [](Line& line) { line.phone().remove(line.word("PATH")); }},
    {"missing class NAME", before, "the class does not exist on this phone",
     [](Line& line) { line.phone().missingClass(line.word("NAME")); }},
    {"missing bundle PATH", before, "the bundle at PATH does not load",
     [](Line& line) { line.phone().missingBundle(line.word("PATH")); }},
    {"missing method CLASS SELECTOR", before, "the class has no such method on this phone",
     [](Line& line) { line.phone().missingMethod(line.word("CLASS"), line.word("SELECTOR")); }},
    {"missing file PATH", before, "a file or a folder that the package brings is not there",
     [](Line& line) { line.phone().missingFile(line.word("PATH")); }},
    {"dock ICONS", before, "how many icons the dock holds (4)",
     [](Line& line) { line.phone().dock(line.count("ICONS")); }},
    {"dock ICONS floating", before, "the same, in a floating dock",
     [](Line& line) {
         line.phone().dock(line.count("ICONS"));
         line.phone().floatingDock();
     }},
    {"connectivity-button W H", always, "intrinsic size of the connectivity buttons (60 60)",
     [](Line& line) { line.phone().connectivityButton(line.number("W"), line.number("H")); }},
    {"connectivity-fails N", before, "the first N airplane controllers are nil (0)",
     [](Line& line) { line.phone().connectivityFails(line.count("N")); }},
    {"recents BUNDLE...", always, "the recent applications, newest first",
     [](Line& line) { line.phone().recents(line.words("BUNDLE")); }},
    {"scene-after BUNDLE N", before, "its process has a main scene from the Nth creation on (1)",
     [](Line& line) { line.phone().sceneAfter(line.word("BUNDLE"), line.count("N")); }},
    {"flashlight-available yes|no", always, "what the flashlight says of itself (yes)",
     [](Line& line) { line.phone().flashlightAvailable(line.chose("yes")); }},
    {"date DAY TIME", always, "sets the phone's clock, which goes on from there (2018-01-09 09:41)",
     [](Line& line) { line.phone().date(line.date("DAY", "TIME")); }},
    {"language CODE", before, "the phone's language and region format (en)",
     [](Line& line) { line.phone().language(line.word("CODE")); }},
    {"without extension", before, "boots the phone without loading the library",
     [](Line& line) { line.phone().withoutExtension(); }},
    {"boot", before, "starts SpringBoard with the library, until nothing moves",
     [](Line& line) { line.phone().boot(); }},
}};

}  // namespace

std::span<const Form> setupStatements() { return forms; }

}  // namespace simulator::scenario
