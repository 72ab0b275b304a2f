#include "simulator/scenario/report.hpp"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "simulator/scenario/markup.hpp"

namespace simulator::scenario {
namespace {

std::string seconds(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", value);
    return text;
}

bool good(const Outcome& outcome) { return outcome.run && outcome.status == 0; }

constexpr std::string_view style = R"(
:root { color-scheme: light dark; --line: #d0d4da; --soft: #f4f5f7; --text: #1c2128; --quiet: #5c6570;
  --bad: #c4281c; --good: #1a7f37; }
@media (prefers-color-scheme: dark) { :root { --line: #3a4048; --soft: #22262c; --text: #e6e9ed;
  --quiet: #9aa3ad; --bad: #ff7b72; --good: #56d364; } }
body { font: 15px/1.5 system-ui, sans-serif; color: var(--text); max-width: 76rem; margin: 2rem auto;
  padding: 0 1.5rem; }
h1 { font-size: 1.5rem; margin: 0 0 .25rem; }
h2 { font-size: 1.05rem; margin: 0 0 .75rem; font-weight: 600; overflow-wrap: anywhere; }
.bad { color: var(--bad); } .good { color: var(--good); } .quiet { color: var(--quiet); }
article { border: 1px solid var(--line); border-left: 4px solid var(--bad); border-radius: 6px;
  padding: 1rem 1.25rem; margin: 1.25rem 0; }
.parts { display: grid; grid-template-columns: 240px minmax(0, 1fr); gap: 1.5rem; align-items: start; }
.parts img { width: 100%; border: 1px solid var(--line); border-radius: 6px; }
figure { margin: 0; } figcaption { color: var(--quiet); font-size: .85rem; }
pre { background: var(--soft); border-radius: 6px; padding: .6rem .8rem; margin: .4rem 0 .8rem;
  overflow-x: auto; font: 13px/1.5 ui-monospace, monospace; }
pre .here { display: block; font-weight: 600; background: color-mix(in srgb, var(--bad) 16%, transparent);
  margin: 0 -.8rem; padding: 0 .8rem; }
dl { display: grid; grid-template-columns: max-content minmax(0, 1fr); gap: .3rem 1rem; margin: 0 0 .8rem; }
dt { color: var(--quiet); } dd { margin: 0; font-family: ui-monospace, monospace; overflow-wrap: anywhere; }
.film { max-width: 100%; border: 1px solid var(--line); border-radius: 6px; }
summary { cursor: pointer; color: var(--quiet); } details pre { max-height: 24rem; overflow: auto; }
table { border-collapse: collapse; width: 100%; margin: 1rem 0 0; }
td, th { text-align: left; padding: .25rem .75rem .25rem 0; border-bottom: 1px solid var(--line);
  font-weight: normal; }
th { color: var(--quiet); }
)";

// The statement between its neighbours.
void writeSource(std::ostream& page, const std::string& file, int line) {
    constexpr int around = 3;
    std::ifstream input(file);
    if (line == 0 || !input) return;
    page << "<pre>";
    std::string text;
    for (int number = 1; std::getline(input, text) && number <= line + around; ++number) {
        if (number < line - around) continue;
        char place[16];
        std::snprintf(place, sizeof place, "%4d  ", number);
        if (number == line)
            page << "<span class=\"here\">" << place << escaped(text) << "</span>";
        else
            page << "<span class=\"quiet\">" << place << "</span>" << escaped(text) << '\n';
    }
    page << "</pre>\n";
}

void writeDetails(std::ostream& page, const char* title, const std::string& text) {
    if (text.empty()) return;
    page << "<details><summary>" << title << "</summary><pre>" << escaped(text)
         << "</pre></details>\n";
}

void writeFailure(std::ostream& page, const Outcome& outcome, const RecordedFailure& failure) {
    page << "<article>\n<h2>" << escaped(outcome.file);
    if (failure.line > 0) page << ":" << failure.line;
    if (!outcome.system.empty()) page << " on " << outcome.system;
    page << "</h2>\n<div class=\"parts\">\n<figure>";
    if (!failure.picture.empty())
        page << "<a href=\"" << failure.picture << "\"><img src=\"" << failure.picture
             << "\" alt=\"The screen when it failed\"></a><figcaption>The screen when it "
                "failed</figcaption>";
    else
        page << "<figcaption>No picture: there was no phone to take one of</figcaption>";
    page << "</figure>\n<div>\n<dl>";
    if (!failure.expected.empty())
        page << "<dt>expected</dt><dd>" << escaped(failure.expected) << "</dd>";
    else if (!failure.statement.empty())
        page << "<dt>statement</dt><dd>" << escaped(failure.statement) << "</dd>";
    const char* outcomeWord = failure.statement.empty()  ? "why"
                              : failure.expected.empty() ? "but"
                                                         : "got";
    page << "<dt>" << outcomeWord << "</dt><dd class=\"bad\">" << escaped(failure.got)
         << "</dd></dl>\n";
    writeSource(page, outcome.file, failure.line);
    if (!failure.film.empty())
        page << "<figure><a href=\"" << failure.film << "\"><img class=\"film\" src=\""
             << failure.film
             << "\" alt=\"The second before\"></a><figcaption>The second before, an eighth of a "
                "second apart; on the right the screen when it failed</figcaption></figure>\n";
    std::string journal;
    for (const std::string& line : failure.journal) journal += line + "\n";
    writeDetails(page, "The last lines of the journal (seconds of the phone's time)", journal);
    writeDetails(page,
                 outcome.died && failure.picture.empty() ? "Messages in flight" : "The view tree",
                 failure.tree);
    page << "</div>\n</div>\n</article>\n";
}

void writeList(std::ostream& page, const std::vector<Outcome>& outcomes) {
    page << "<h2>All files</h2>\n<table><tr><th>file</th><th>outcome</th><th>seconds</th></tr>\n";
    for (const Outcome& outcome : outcomes)
        page << "<tr><td>" << escaped(title(outcome)) << "</td><td class=\""
             << (good(outcome) ? "good"
                 : outcome.run ? "bad"
                               : "quiet")
             << "\">" << escaped(summary(outcome)) << "</td><td>" << seconds(outcome.seconds)
             << "</td></tr>\n";
    page << "</table>\n";
}

// What kept a file from running at all, as a failure of no line.
RecordedFailure whatWasSaid(const Outcome& outcome) {
    RecordedFailure failure;
    failure.got = outcome.said;
    while (failure.got.ends_with('\n')) failure.got.pop_back();
    failure.message = failure.got;
    return failure;
}

std::vector<RecordedFailure> failuresOf(const Outcome& outcome) {
    if (good(outcome) || !outcome.run) return {};
    if (outcome.failures.empty()) return {whatWasSaid(outcome)};
    return outcome.failures;
}

void writeFile(const std::filesystem::path& file, const std::string& text) {
    std::ofstream output(file, std::ios::binary);
    output << text;
    if (!output.flush()) throw std::runtime_error("cannot write " + file.string());
}

}  // namespace

std::string reportPage(const std::vector<Outcome>& outcomes) {
    const auto files = outcomes.size();
    const auto held = std::count_if(outcomes.begin(), outcomes.end(), good);
    std::size_t failures = 0;
    int expectations = 0;
    for (const Outcome& outcome : outcomes) {
        failures += failuresOf(outcome).size();
        expectations += outcome.held;
    }
    std::ostringstream page;
    page << "<!doctype html>\n<html lang=\"en\">\n<meta charset=\"utf-8\">\n"
            "<meta name=\"viewport\" content=\"width=device-width\">\n<title>"
         << failures << " failures in " << files << " scenarios</title>\n<style>" << style
         << "</style>\n<h1>";
    if (failures == 0)
        page << "<span class=\"good\">All held</span>";
    else
        page << "<span class=\"bad\">" << failures << (failures == 1 ? " failure" : " failures")
             << "</span>";
    page << "</h1>\n<p class=\"quiet\">" << held << " of " << files
         << (files == 1 ? " file" : " files") << " held; " << expectations
         << " expectations held in all.</p>\n";
    for (const Outcome& outcome : outcomes)
        for (const RecordedFailure& failure : failuresOf(outcome))
            writeFailure(page, outcome, failure);
    writeList(page, outcomes);
    page << "</html>\n";
    return page.str();
}

std::string reportForMachines(const std::vector<Outcome>& outcomes) {
    std::size_t failed = 0, broken = 0, skipped = 0;
    double time = 0;
    for (const Outcome& outcome : outcomes) {
        time += outcome.seconds;
        if (!outcome.run)
            ++skipped;
        else if (outcome.died || outcome.status == 2)
            ++broken;
        else if (outcome.status != 0)
            ++failed;
    }
    std::ostringstream xml;
    xml << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites>\n<testsuite "
           "name=\"scenarios\" tests=\""
        << outcomes.size() << "\" failures=\"" << failed << "\" errors=\"" << broken
        << "\" skipped=\"" << skipped << "\" time=\"" << seconds(time) << "\">\n";
    for (const Outcome& outcome : outcomes) {
        const std::filesystem::path file = outcome.file;
        xml << "<testcase classname=\"" << escaped(file.parent_path().string()) << "\" name=\""
            << escaped(file.stem().string())
            << (outcome.system.empty() ? "" : " on " + outcome.system) << "\" time=\""
            << seconds(outcome.seconds) << "\">";
        if (!outcome.run) xml << "<skipped/>";
        const char* element = outcome.died || outcome.status == 2 ? "error" : "failure";
        for (const RecordedFailure& failure : failuresOf(outcome)) {
            xml << "\n<" << element << " message=\"" << escaped(failure.message) << "\">"
                << escaped(outcome.file) << ":" << failure.line << ": " << escaped(failure.message)
                << "</" << element << ">";
        }
        xml << "</testcase>\n";
    }
    xml << "</testsuite>\n</testsuites>\n";
    return xml.str();
}

void writeReport(const std::filesystem::path& folder, const std::vector<Outcome>& outcomes) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    writeFile(folder / "index.html", reportPage(outcomes));
    writeFile(folder / "junit.xml", reportForMachines(outcomes));
}

}  // namespace simulator::scenario
