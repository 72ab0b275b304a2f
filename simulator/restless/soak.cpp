#include "simulator/restless/soak.hpp"

#include <malloc.h>

#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "simulator/phone/soundness.hpp"
#include "simulator/runtime/clock.hpp"

namespace simulator::restless {

namespace {

constexpr long rowsInAll = 200;
constexpr double pause = 1;  // seconds, after each pull
constexpr double hour = 3600;
constexpr double song = 200;  // seconds, after which the next one plays
constexpr double mebibyte = 1024 * 1024;

struct Soaking {
    Phone& phone;
    std::ostream& table;
    std::ostream& output;
    long opens = 0;
    bool sound = true;

    void row() {
        const Extent now = Extent::now();
        table << opens << '\t' << Clock::shared().now() / hour << '\t'
              << static_cast<double>(mallinfo2().uordblks) / mebibyte << '\t' << now.views << '\t'
              << now.recognizers << '\t' << now.observers << '\t' << now.timers << '\n';
        const auto wrong = phone.wrong();
        if (!wrong || !sound) return;
        sound = false;
        output << "after " << opens << " opens: " << *wrong << std::endl;
    }
    void pull() {
        phone.pull({.edge = 60, .distance = 300, .seconds = 0.2, .flick = std::nullopt});
        phone.wait(pause);
    }
    void openAndClose(long times) {
        const long step = std::max(times / rowsInAll, 1L);
        for (long time = 0; time < times; ++time) {
            if (time % step == 0) row();
            pull();
            ++opens;
            pull();
        }
        row();
    }
    // Open, so that the titles scroll and the pages are told of every song.
    void playFor(double hours) {
        const double end = Clock::shared().now() + hours * hour;
        const double step = hours * hour / rowsInAll;
        if (hours > 0) pull();
        double due = 0;
        for (long number = 0; Clock::shared().now() < end; ++number) {
            phone.play({.title = "Song number " + std::to_string(number) + " with a long title",
                        .artist = "Somebody",
                        .album = "An album",
                        .artworkId = "cover",
                        .bundle = "com.apple.Music"});
            phone.wait(song);
            if (Clock::shared().now() < due) continue;
            row();
            due = Clock::shared().now() + step;
        }
    }
};

}  // namespace

int runSoak(const SoakOptions& options, const scenario::PhoneMaker& makePhone,
            std::ostream& output) {
    std::ofstream table(options.table);
    table << "opens\thours\tMiB\tviews\trecognisers\tobservers\ttimers\n";
    const std::unique_ptr<Phone> phone = makePhone({});
    phone->boot();
    Soaking soaking{.phone = *phone, .table = table, .output = output};
    soaking.openAndClose(options.opens);
    soaking.playFor(options.hours);
    if (!table.flush()) throw std::runtime_error("cannot write " + options.table.string());
    output << options.opens << " opens and closes, then " << options.hours
           << " hours with music: " << options.table.string() << std::endl;
    return soaking.sound ? 0 : 1;
}

}  // namespace simulator::restless
