// Values, expectations, and pictures of the phone.
#include <array>

#include "simulator/scenario/line.hpp"
#include "simulator/scenario/statements.hpp"

namespace simulator::scenario {
namespace {

constexpr auto always = Phase::always;
constexpr auto booted = Phase::booted;

// A literal says already in the source what it is worth.
bool speaksForItself(const Expression& expression) {
    return std::holds_alternative<NumberLiteral>(expression.node) ||
           std::holds_alternative<StringLiteral>(expression.node);
}

// What was got, told apart from what it was compared with.
std::string contrasted(const Value& left, const Value& right, const Expression& source) {
    const std::string got = printed(left), other = printed(right);
    const auto* object = std::get_if<Object>(&left);
    if (got == other && object != nullptr && !asNumber(left) && !asText(left)) {
        const bool same = object->object == std::get<Object>(right).object;
        return (same ? "the same " : "another ") + got;
    }
    const bool alike = got == other && asNumber(left) && asNumber(right) && !equal(left, right);
    if (alike)
        return printedExactly(left) + " where " + source.text + " is " + printedExactly(right);
    if (speaksForItself(source) || source.text == other) return got;
    return got + " where " + source.text + " is " + other;
}

void expectValue(Line& line) {
    const Value left = line.value("EXPR");
    if (!line.given("OP")) return line.expect(isTrue(left), " to be YES or not nil", printed(left));
    const Value right = line.value("EXPR", 1);
    line.expect(holds(left, line.comparison("OP"), right),
                contrasted(left, right, line.expression("EXPR", 1)));
}

// A slip of the pen would hold for ever in `expect called … 0`.
void checkMethod(Line& line) {
    if (const auto mistake =
            line.phone().mistakeInMethod(line.word("CLASS"), line.word("SELECTOR")))
        throw EvaluationError(*mistake);
}

void expectCalled(Line& line) {
    checkMethod(line);
    line.expectCount(line.phone().calledCount(line.word("CLASS"), line.word("SELECTOR")), "N");
}

void expectLastCall(Line& line) {
    checkMethod(line);
    const auto call = line.phone().lastCall(line.word("CLASS"), line.word("SELECTOR"));
    if (!call) return line.expect(false, "no such call");
    const std::vector<Value> wanted = line.values("VALUE");
    bool same = wanted.size() == call->size();
    std::string got;
    for (std::size_t index = 0; index < call->size(); ++index) {
        if (same && !equal((*call)[index], wanted[index])) same = false;
        got += (index == 0 ? "" : " ") + printed((*call)[index]);
    }
    line.expect(same, got.empty() ? "no arguments" : got);
}

void expectHooked(Line& line, bool wanted) {
    checkMethod(line);
    const bool hooked = line.phone().hooked(line.word("CLASS"), line.word("SELECTOR"));
    line.expect(hooked == wanted, hooked ? "hooked" : "unhooked");
}

void expectOrder(Line& line) {
    const std::vector<Event> events = line.events("EVENT");
    for (const Event& event : events) {
        if (event.kind != Event::Kind::called) continue;
        if (const auto mistake = line.phone().mistakeInMethod(event.name, event.selector))
            throw EvaluationError(*mistake);
    }
    const EventsInOrder outcome = line.phone().inOrder(events);
    if (outcome.met >= events.size()) return line.expect(true, "");
    std::string got = "no " + events[outcome.met].text;
    if (outcome.met > 0) got += " after " + events[outcome.met - 1].text;
    got += outcome.inAll == 0 ? " at all" : " (" + std::to_string(outcome.inAll) + " in all)";
    line.expect(false, got);
}

void expectShown(Line& line) {
    const auto reason = line.phone().notShown(line.word("TEXT"));
    line.expect(!reason, reason.value_or(""));
}

void expectNotShown(Line& line) {
    line.expect(line.phone().notShown(line.word("TEXT")).has_value(), "it is shown");
}

void expectNothingWrong(Line& line) {
    const auto wrong = line.phone().wrong();
    line.expect(!wrong, wrong.value_or(""));
}

void expectHaptics(Line& line) {
    const int style = line.count("STYLE");
    if (style > 2) throw EvaluationError("an impact is 0 light, 1 medium or 2 heavy");
    line.expectCount(line.phone().haptics(style), "N");
}

// Whoever switched it, and by whatever way.
void expectToggled(Line& line) {
    const bool on = line.phone().toggled(line.word("NAME"));
    line.expect(on == line.chose("on"), on ? "on" : "off");
}

void expectPlayer(Line& line, bool playing) {
    const auto look = line.phone().player();
    const bool held = look && look->playing == playing && look->title == line.word("TITLE");
    line.expect(held, !look ? "nothing" : (look->playing ? "playing " : "paused ") + look->title);
}

void expectCrashed(Line& line) {
    std::optional<std::string> reason = line.phone().crashed();
    if (!reason && line.raised() != nullptr) reason = *line.raised();
    line.expect(reason.has_value() == line.chose("yes"), reason.value_or("no"));
}

std::string withoutEnd(std::string text) {
    while (text.ends_with('\n')) text.pop_back();
    return text;
}

void printTree(Line& line) {
    objc_object* root = line.given("VIEW") ? line.view("VIEW") : nullptr;
    line.print(withoutEnd(line.phone().tree(root)));
}

void film(Line& line) {
    const int frames = line.count("FRAMES");
    if (frames < 1) throw EvaluationError("a film has at least one frame");
    line.phone().film({line.picture("FILE"), frames, line.seconds("S")});
}

constexpr std::array<Form, 28> forms{{
    {"print EXPR", always, "the value on a line of its own",
     [](Line& line) { line.print(printed(line.value("EXPR"))); }},
    {"do EXPR", always, "evaluates, drops the value", [](Line& line) { line.value("EXPR"); }},
    {"let VARIABLE = EXPR", always, "names a value",
     [](Line& line) { line.name(line.word("VARIABLE"), line.value("EXPR")); }},
    {"expect posted NAME N", always, "how often the notification was posted",
     [](Line& line) { line.expectCount(line.phone().postedCount(line.word("NAME")), "N"); }},
    {"expect darwin-posted NAME N", always, "how often the Darwin notification was posted",
     [](Line& line) { line.expectCount(line.phone().darwinPostedCount(line.word("NAME")), "N"); }},
    {"expect called CLASS SELECTOR N", always, "how often the system operation was run",
     expectCalled},
    {"expect last CLASS SELECTOR with VALUE...", always, "the arguments of its latest run",
     expectLastCall},
    {"expect hooked CLASS SELECTOR", always, "the method was hooked",
     [](Line& line) { expectHooked(line, true); }},
    {"expect unhooked CLASS SELECTOR", always, "the method was not hooked",
     [](Line& line) { expectHooked(line, false); }},
    {"expect hooks N", always, "how many methods were hooked",
     [](Line& line) { line.expectCount(line.phone().hookCount(), "N"); }},
    {"expect order EVENT...", always,
     "these came in this order: called CLASS SELECTOR, posted NAME, darwin-posted NAME, "
     "haptic STYLE, launched BUNDLE, logged TEXT, parted by commas",
     expectOrder},
    {"expect shown TEXT", booted, "a label or button with exactly this text can be seen",
     expectShown},
    {"expect not-shown TEXT", booted, "no label or button with exactly this text can be seen",
     expectNotShown},
    {"expect nothing wrong", booted,
     "what must hold of the toolbars whenever nothing moves, whatever was done before",
     expectNothingWrong},
    {"expect haptics STYLE N", always, "impacts given: 0 light, 1 medium, 2 heavy", expectHaptics},
    {"expect logged TEXT N", always, "lines of the system log that contain TEXT",
     [](Line& line) { line.expectCount(line.phone().loggedCount(line.word("TEXT")), "N"); }},
    {"expect launched BUNDLE N", always, "application launches asked for",
     [](Line& line) { line.expectCount(line.phone().launchedCount(line.word("BUNDLE")), "N"); }},
    {"expect launched-suspended BUNDLE N", always, "launches in the background asked for",
     [](Line& line) {
         line.expectCount(line.phone().launchedSuspendedCount(line.word("BUNDLE")), "N");
     }},
    {"expect toggled NAME on|off", booted, "a system setting, whoever switched it", expectToggled},
    {"expect playing TITLE", booted, "the player runs, and with this title",
     [](Line& line) { expectPlayer(line, true); }},
    {"expect paused TITLE", booted, "the player stands at this title",
     [](Line& line) { expectPlayer(line, false); }},
    {"expect crashed no|yes", always, "nothing was raised and no unknown message was sent",
     expectCrashed},
    {"expect EXPR [OP EXPR]", always, "holds when EXPR is YES or not nil, or by OP", expectValue},
    {"clear", always, "forgets all that was counted so far",
     [](Line& line) { line.phone().clear(); }},
    {"tree [VIEW]", booted, "prints the view tree", printTree},
    {"elements", booted, "prints what a screen reader goes through, in order",
     [](Line& line) { line.print(withoutEnd(line.phone().elements())); }},
    {"shot FILE [at SCALE]", booted, "a picture of the screen as it is now, SCALE pixels a point",
     [](Line& line) {
         line.phone().shot(line.picture("FILE"), line.given("SCALE") ? line.number("SCALE") : 1);
     }},
    {"film FILE FRAMES over S", booted, "lets S seconds pass, FRAMES pictures side by side", film},
}};

}  // namespace

std::span<const Form> lookingStatements() { return forms; }

}  // namespace simulator::scenario
