#include "simulator/restless/restless.hpp"

#include <algorithm>
#include <deque>
#include <fstream>
#include <map>
#include <memory>
#include <set>
#include <stdexcept>

#include "simulator/restless/hand.hpp"
#include "simulator/restless/life.hpp"
#include "simulator/restless/shrink.hpp"

namespace simulator::restless {

namespace {

constexpr int triesToShrink = 600;

class Restless {
  public:
    Restless(const RestlessOptions& options, const scenario::PhoneMaker& makePhone,
             std::ostream& output)
        : options_(options), makePhone_(makePhone), output_(output) {}

    int run() {
        for (long begun = 0; begun < options_.events || !running_.empty();) {
            while (begun < options_.events && running_.size() < std::max(options_.jobs, 1U)) {
                start(static_cast<int>(
                    std::min<long>(options_.eventsOfALife, options_.events - begun)));
                begun += options_.eventsOfALife;
            }
            finishFirst();
        }
        sayTotal();
        return findings_.empty() ? 0 : 1;
    }

  private:
    struct Running {
        int number;
        std::vector<Event> events;
        std::unique_ptr<Life> life;
    };

    void start(int events) {
        const int number = ++phones_;
        Random seeds(options_.seed + static_cast<std::uint64_t>(number) * 1000003);
        auto running = std::make_unique<Running>();
        running->number = number;
        running->events = life({.seed = seeds.next(),
                                .events = events,
                                .device = options_.device,
                                .system = options_.system,
                                .real = options_.real});
        running->life = std::make_unique<Life>(running->events, makePhone_, false);
        running_.push_back(std::move(running));
    }

    // In the order in which they began, however they end.
    void finishFirst() {
        const std::unique_ptr<Running> first = std::move(running_.front());
        running_.pop_front();
        const Outcome outcome = first->life->outcome();
        openings_ += outcome.openings;
        behind_ += outcome.behind;
        rests_ += outcome.rests;
        proofs_ += outcome.proofs;
        refused_ += outcome.refused;
        for (std::size_t line = 0; line < std::min(outcome.run, first->events.size()); ++line) {
            if (!isDone(first->events[line])) continue;
            ++done_;
            ++byKind_[first->events[line].kind];
        }
        if (outcome.finding) found(*first, *outcome.finding);
    }

    void found(const Running& where, const Finding& finding) {
        const bool known = !findings_.insert(finding.sign).second;
        output_ << "phone " << where.number << ", line " << finding.line + 1 << " of "
                << where.events.size() << ": " << finding.what << std::endl;
        if (known) return;
        std::vector<Event> lines(where.events.begin(),
                                 where.events.begin() + static_cast<long>(finding.line) + 1);
        int tried = 0;
        const auto fails = [&](const std::vector<Event>& fewer) {
            ++tried;
            const auto again = Life(fewer, makePhone_, true).outcome().finding;
            return again && again->sign == finding.sign && again->line + 1 == fewer.size();
        };
        const auto isKept = [](const Event& event) { return event.line == "boot"; };
        lines = shrunk(std::move(lines), fails, triesToShrink, isKept);
        save(where, finding, lines, tried);
    }

    void save(const Running& where, const Finding& finding, const std::vector<Event>& lines,
              int tried) {
        const std::filesystem::path file =
            options_.save / ("restless-" + std::to_string(options_.seed) + "-" +
                             std::to_string(where.number) + ".scenario");
        if (!options_.save.empty()) std::filesystem::create_directories(options_.save);
        std::ofstream text(file);
        text << "# Seed " << options_.seed << ", phone " << where.number << ": "
             << finding.what.substr(0, finding.what.find('\n')) << '\n';
        for (const Event& event : lines) text << event.line << '\n';
        if (!text.flush()) throw std::runtime_error("cannot write " + file.string());
        output_ << "  made small in " << tried << " tries: " << file.string() << ", "
                << lines.size() << " lines" << std::endl;
    }

    void sayTotal() {
        output_ << "seed " << options_.seed << ": " << done_ << " events on " << phones_
                << " phones, " << openings_ << " openings (" << behind_ << " behind applications), "
                << rests_ << " rests checked, " << proofs_ << " pulls from home opened, "
                << refused_ << " lines refused, " << findings_.size() << " findings\n ";
        std::string_view last;
        for (const std::string_view name : habitNames()) {
            if (name != last) output_ << ' ' << name << ' ' << byKind_[name] << ',';
            last = name;
        }
        output_ << " and at each rest: nothing raised, one window, the toolbar up or away, what is "
                   "open seen and touched, the pages free, the application in place or lifted, "
                   "nothing grown"
                << std::endl;
    }

    const RestlessOptions& options_;
    const scenario::PhoneMaker& makePhone_;
    std::ostream& output_;
    std::deque<std::unique_ptr<Running>> running_;
    std::set<std::string> findings_;
    std::map<std::string_view, long> byKind_;
    int phones_ = 0;
    long done_ = 0, openings_ = 0, behind_ = 0, rests_ = 0, proofs_ = 0, refused_ = 0;
};

}  // namespace

int runRestless(const RestlessOptions& options, const scenario::PhoneMaker& makePhone,
                std::ostream& output) {
    return Restless(options, makePhone, output).run();
}

}  // namespace simulator::restless
