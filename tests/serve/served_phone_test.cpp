// A phone with the library, driven by pages as a browser's page does.
#include "simulator/serve/served_phone.hpp"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "hooks/start_up.hpp"
#include "simulator/phone/extension.hpp"
#include "simulator/phone/temporary_root.hpp"
#include "simulator/serve/listening.hpp"
#include "tests/serve/client.hpp"

namespace simulator::serve::tests {
namespace {

using nlohmann::json;

// A page: what it is told is read until what is waited for comes.
class Page {
  public:
    explicit Page(int port) : client_(port) {
        EXPECT_EQ(client_.upgrade("/" + std::string(key) + "/phone"), 101);
    }

    void say(const json& request) { client_.sendText(request.dump()); }
    json ask(json request) {
        request["id"] = ++id_;
        say(request);
        return until([&](const json& told) { return told.value("id", 0) == id_; })["answer"];
    }
    // The state, once it is as wanted. It is told when it changes, and that may have been while something
    // else was waited for.
    json state(const std::function<bool(const json&)>& wanted) {
        if (state_.is_null() || !wanted(state_))
            until([&](const json& told) { return told.contains("state") && wanted(state_); });
        return state_;
    }
    std::string said(const std::string& line) {
        std::string text;
        say({{"do", "say"}, {"line", line}});
        until([&](const json& told) {
            for (const json& event : told.value("events", json::array())) {
                if (event.value("line", "") != line) continue;
                text = event["text"];
                return true;
            }
            return false;
        });
        return text;
    }
    // The first line of the journal that has that in it.
    json happened(const std::string& part) {
        json found;
        until([&](const json& told) {
            for (const json& event : told.value("happened", json::array()))
                if (event.value("text", "").find(part) != std::string::npos) found = event;
            return !found.is_null();
        });
        return found;
    }
    std::string picture() {
        for (;;) {
            const auto message = client_.read();
            if (!message || message->opcode == 8) return "";
            if (message->opcode == 2) return message->payload;
        }
    }

  private:
    json until(const std::function<bool(const json&)>& wanted) {
        for (;;) {
            const auto message = client_.read();
            if (!message || message->opcode == 8) {
                ADD_FAILURE() << "the connection ended";
                return {};
            }
            if (message->opcode != 1) continue;
            json told = json::parse(message->payload);
            if (told.contains("state")) state_ = told["state"];
            if (wanted(told)) return told;
        }
    }

    Client client_;
    int id_ = 0;
    json state_;  // as it was told last
};

class ServedPhoneTest : public testing::Test {
  protected:
    ServedPhoneTest() : folder_({}) {
        setExtensionLoader(&vantori::startUp);
        live::LiveOptions options;
        options.root = folder_.path() / "phone";
        phone_.emplace(options, folder_.path());
    }
    // Serves until the work is done; answers what was wanted next.
    std::optional<StartRequest> serve(const std::function<void()>& work) {
        std::ostringstream errors;
        EXPECT_TRUE(phone_->boot(errors)) << errors.str();
        ServerOptions options;
        options.listening = listening_.descriptor();
        options.key = key;
        std::atomic<bool> done = false;
        std::thread other([&] {
            work();
            done = true;
        });
        const auto wanted = phone_->serve(options, [&] { return done.load(); });
        other.join();
        return wanted;
    }
    Page page() const { return Page(listening_.port()); }

    TemporaryRoot folder_;
    Listening listening_{"127.0.0.1", 0};
    std::optional<ServedPhone> phone_;
};

// Two hundred moves in a row, each a place of its own.
TEST_F(ServedPhoneTest, TouchesKeepTheirOrderAndNoneIsLost) {
    std::string recording;
    serve([&] {
        Page page = this->page();
        page.ask({{"do", "record"}, {"on", true}});
        page.say({{"do", "touch"}, {"phase", "down"}, {"x", 100}, {"y", 300}});
        for (int i = 1; i <= 200; ++i)
            page.say({{"do", "touch"}, {"phase", "move"}, {"x", 100}, {"y", 300 + i}});
        page.say({{"do", "touch"}, {"phase", "up"}});
        page.state([](const json& state) { return state["touches"] == 202; });
        recording = page.ask({{"do", "record"}, {"on", false}});
    });
    std::istringstream lines(recording);
    std::vector<std::string> moves;
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with("touch")) moves.push_back(line);
    ASSERT_EQ(moves.size(), 202U);
    EXPECT_EQ(moves.front(), "touch down 100 300");
    for (int i = 1; i <= 200; ++i)
        EXPECT_EQ(moves[static_cast<std::size_t>(i)],
                  "touch move 100 " + std::to_string(300 + i) + " over 0");
    EXPECT_EQ(moves.back(), "touch up");
}

TEST_F(ServedPhoneTest, TwoPagesSeeTheSame) {
    serve([&] {
        Page one = page(), other = page();
        one.say({{"do", "look"}, {"scale", 1}});
        other.say({{"do", "look"}, {"scale", 1}});
        EXPECT_EQ(one.picture(), other.picture());
        one.say({{"do", "say"}, {"line", "appearance dark"}});
        other.state([](const json& state) { return state["dark"] == true; });
        one.say({{"do", "touch"}, {"phase", "down"}, {"x", 50}, {"y", 60}});
        other.state([](const json& state) { return state["finger"] == json({50, 60}); });
        // There is one finger.
        other.say({{"do", "touch"}, {"phase", "down"}, {"x", 70}, {"y", 80}});
        other.say({{"do", "touch"}, {"phase", "up"}});
        one.say({{"do", "touch"}, {"phase", "move"}, {"x", 51}, {"y", 61}});
        other.state([](const json& state) { return state["finger"] == json({51, 61}); });
    });
}

TEST_F(ServedPhoneTest, ThePageThatGoesTakesItsFingerWithIt) {
    serve([&] {
        Page stays = page();
        {
            Page goes = page();
            goes.say({{"do", "touch"}, {"phase", "down"}, {"x", 50}, {"y", 60}});
            stays.state([](const json& state) { return state["finger"].is_array(); });
        }
        stays.state(
            [](const json& state) { return state["finger"].is_null() && state["pages"] == 1; });
        EXPECT_EQ(stays.said("print 1 + 1"), stays.said("print 1 + 1"));
    });
}

TEST_F(ServedPhoneTest, TimeStandsStillAndGoesAFrameOn) {
    serve([&] {
        Page page = this->page();
        page.say({{"do", "pace"}, {"paused", true}});
        const double before =
            page.state([](const json& state) { return state["paused"] == true; })["time"];
        page.say({{"do", "pace"}, {"step", true}});
        const double after =
            page.state([&](const json& state) { return state["time"] != before; })["time"];
        EXPECT_NEAR(after - before, 1.0 / 60, 1e-9);
    });
}

// The library notes that it was shown as soon as it shows it: what counts is what is on the screen.
TEST_F(ServedPhoneTest, TellsOfTheWelcomeForAsLongAsItIsShown) {
    serve([&] {
        Page page = this->page();
        EXPECT_EQ(page.state([](const json&) { return true; })["welcome"], true);
        page.said("let windows = [[UIApplication sharedApplication] windows]");
        page.said("let home = [[[windows objectAtIndex: 1] subviews] objectAtIndex: 0]");
        page.said("do [[[[home subviews] lastObject] nextResponder] backToHome]");
        page.said("wait 2");
        page.state([](const json& state) { return state["welcome"] == false; });
    });
}

TEST_F(ServedPhoneTest, TellsOfViewsWithTheirPlaces) {
    serve([&] {
        Page page = this->page();
        page.said("pull 60 320 over 0.3");
        const json views = page.ask({{"do", "views"}});
        ASSERT_FALSE(views.empty());
        int withText = 0, ofTheLibrary = 0;
        std::function<void(const json&)> look = [&](const json& view) {
            if (view.contains("text")) ++withText;
            if (view.contains("library")) ++ofTheLibrary;
            EXPECT_EQ(view["frame"].size(), 4U);
            for (const json& below : view["children"]) look(below);
        };
        for (const json& window : views) look(window);
        EXPECT_GT(withText, 0);
        EXPECT_GT(ofTheLibrary, 0);
        const json layers = page.ask({{"do", "layers"}});
        ASSERT_FALSE(layers.empty());
        EXPECT_TRUE(
            layers[0]["picture"].get<std::string>().starts_with("data:image/png;base64,iVBOR"));
    });
}

TEST_F(ServedPhoneTest, CompletesStatementsAndTellsWhatHappens) {
    serve([&] {
        Page page = this->page();
        EXPECT_EQ(page.ask({{"do", "complete"}, {"before", ""}, {"word", "appea"}}),
                  json{"appearance"});
        page.say({{"do", "journal"}, {"kinds", {"notification"}}});
        page.say({{"do", "say"}, {"line", "lock"}});
        const json happened = page.happened("UIWindowDidBecomeVisibleNotification");
        EXPECT_EQ(happened["kind"], "notification");
    });
}

TEST_F(ServedPhoneTest, TellsOfWhatHappenedBeforeThePageCame) {
    serve([&] {
        page().said("post Earlier");
        Page other = page();
        other.say({{"do", "journal"}, {"kinds", {"notification"}}, {"past", true}});
        EXPECT_EQ(other.happened("UIWindowDidBecomeVisibleNotification")["kind"],
                  "notification");  // of the home screen
        other.say({{"do", "journal"}, {"kinds", {"notification", "operation"}}, {"past", true}});
        EXPECT_EQ(other.happened("Earlier")["kind"], "notification");
        // The console's own watching takes nothing from the journal.
        other.said("watch log");
        other.said("watch off");
        other.say({{"do", "say"}, {"line", "post Later"}});
        EXPECT_EQ(other.happened("Later")["kind"], "notification");
    });
}

TEST_F(ServedPhoneTest, TheSettingsAreThoseOfThePane) {
    serve([&] {
        Page page = this->page();
        const auto valueOf = [&](const std::string& key) {
            for (const json& cell : page.ask({{"do", "settings"}}))
                if (cell.value("key", "") == key) return cell["value"];
            return json();
        };
        EXPECT_EQ(valueOf("hideGrabber"), false);
        page.said("setting hideGrabber true");
        EXPECT_EQ(valueOf("hideGrabber"), true);
    });
}

TEST_F(ServedPhoneTest, ThePhoneIsStartedAnewOnlyAsOneThatThereIs) {
    const auto wanted = serve([&] {
        Page page = this->page();
        page.say({{"do", "start"}, {"device", "iPod1,1"}});
        page.said("print 1");
        page.say({{"do", "start"}, {"device", "iPhone8,1"}, {"system", "12.4"}});
    });
    ASSERT_TRUE(wanted);
    EXPECT_EQ(wanted->device, "iPhone8,1");
    EXPECT_EQ(wanted->system, "12.4");
}

}  // namespace
}  // namespace simulator::serve::tests
