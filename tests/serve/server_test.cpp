// What the server answers to right and wrong clients, whatever is served.
#include "simulator/serve/server.hpp"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <array>
#include <atomic>
#include <deque>
#include <vector>

#include "simulator/serve/key.hpp"
#include "simulator/serve/listening.hpp"
#include "tests/serve/client.hpp"

namespace simulator::serve::tests {
namespace {

constexpr std::array<PageFile, 2> files{{
    {"index.html", "text/html; charset=utf-8", "<base href=\"{{base}}\">"},
    {"page.js", "text/javascript; charset=utf-8", "export {};"},
}};

// Notes what it hears, and tells what it is given to tell.
class Notes : public Audience {
  public:
    void joined(ClientId client) override {
        ++joins;
        last = client;
    }
    std::optional<Closing> heard(ClientId, std::string_view message) override {
        messages.emplace_back(message);
        if (message == "shut me out") return Closing{1008, "as it wanted"};
        return std::nullopt;
    }
    void left(ClientId) override { ++leaves; }
    std::optional<Outgoing> next(ClientId client) override {
        return tell ? tell(client) : std::nullopt;
    }

    std::atomic<int> joins = 0;
    std::atomic<int> leaves = 0;
    ClientId last = 0;
    std::vector<std::string> messages;
    std::function<std::optional<Outgoing>(ClientId)> tell;
};

class ServerTest : public testing::Test {
  protected:
    ServerOptions options() const {
        ServerOptions options;
        options.listening = listening_.descriptor();
        options.key = key;
        options.files = files;
        return options;
    }
    Client client() const { return Client(listening_.port()); }
    std::string line() const { return "/" + std::string(key) + "/phone"; }
    void serve(const std::function<void()>& work) {
        Server server(options(), notes_);
        serveWhile(server, work);
    }

    Listening listening_{"127.0.0.1", 0};
    Notes notes_;
};

TEST(Key, IsNewEachTimeAndComparedWhole) {
    const std::string key = makeKey();
    EXPECT_EQ(key.size(), 32U);
    EXPECT_NE(key, makeKey());
    EXPECT_TRUE(isKey(key, key));
    EXPECT_FALSE(isKey(key.substr(1), key));
    EXPECT_FALSE(isKey(key + "0", key));
    EXPECT_FALSE(isKey("", ""));
}

TEST(ListeningTest, RefusesWhatIsNoAddress) {
    EXPECT_THROW(Listening("localhost.", 0), std::runtime_error);
    const Listening first("127.0.0.1", 0);
    EXPECT_THROW(Listening("127.0.0.1", first.port()), std::runtime_error);
    EXPECT_EQ(first.origin(), "http://127.0.0.1:" + std::to_string(first.port()));
}

TEST_F(ServerTest, WithoutTheKeyNothingIsAnswered) {
    serve([&] {
        for (const char* path :
             {"/", "/?key=", "/?key=0123456789abcdef0123456789abcdee", "/page.js", "/phone",
              "/0123456789abcdef0123456789abcdee/page.js", "/?other=1", "//", "/%2e"})
            EXPECT_EQ(client().get(path), 403) << path;
        EXPECT_EQ(client().upgrade("/phone"), 403);
        EXPECT_EQ(client().upgrade("/0123456789abcdef0123456789abcdee/phone"), 403);
    });
    EXPECT_EQ(notes_.joins, 0);
}

TEST_F(ServerTest, WithItThePageAndWhatThePageNames) {
    serve([&] {
        Client page = client();
        ASSERT_EQ(page.get("/?key=" + std::string(key)), 200);
        EXPECT_EQ(page.body(), "<base href=\"/" + std::string(key) + "/\">");
        EXPECT_EQ(page.header("content-type"), "text/html; charset=utf-8");
        EXPECT_EQ(page.header("referrer-policy"), "no-referrer");
        Client script = client();
        ASSERT_EQ(script.get("/" + std::string(key) + "/page.js"), 200);
        EXPECT_EQ(script.body(), "export {};");
        EXPECT_EQ(client().get("/" + std::string(key) + "/../page.html"), 403);
        EXPECT_EQ(client().get("/" + std::string(key) + "/other.js"), 404);
        EXPECT_EQ(client().upgrade("/" + std::string(key) + "/other"), 404);
        Client poster = client();
        poster.send("POST /?key=" + std::string(key) +
                    " HTTP/1.1\r\nHost: 127.0.0.1\r\nContent-Length: 0\r\n\r\n");
        EXPECT_EQ(poster.status(), 405);
    });
}

TEST_F(ServerTest, AnotherOriginIsRefused) {
    serve([&] {
        EXPECT_EQ(client().upgrade(line(), "Origin: http://127.0.0.1:81\r\n"), 403);
        EXPECT_EQ(client().upgrade(line(), "Origin: https://127.0.0.1:80\r\n"), 403);
        EXPECT_EQ(client().upgrade(line(), "Origin: null\r\n"), 403);
        EXPECT_EQ(client().upgrade(line(), "Origin: http://127.0.0.1:80\r\n"), 101);
        EXPECT_EQ(client().upgrade(line()), 101);
    });
    EXPECT_EQ(notes_.joins, 2);
}

TEST_F(ServerTest, MessagesComeWholeAndInOrder) {
    serve([&] {
        Client page = client();
        ASSERT_EQ(page.upgrade(line()), 101);
        page.sendText("one");
        page.sendFrame(0x01, "tw");
        page.sendFrame(0x80, "o");
        page.sendText(std::string(60000, 'x'));
        page.sendText("shut me out");
        const auto end = page.read();
        ASSERT_TRUE(end);
        EXPECT_EQ(end->closeStatus(), 1008);
        EXPECT_EQ(end->payload.substr(2), "as it wanted");
    });
    EXPECT_EQ(notes_.messages,
              (std::vector<std::string>{"one", "two", std::string(60000, 'x'), "shut me out"}));
    EXPECT_EQ(notes_.leaves, 1);
}

TEST_F(ServerTest, WhatIsTooLongOrNoTextIsRefusedWithAStatus) {
    serve([&] {
        Client longWinded = client();
        ASSERT_EQ(longWinded.upgrade(line()), 101);
        longWinded.sendText(std::string(std::size_t{8} << 20, 'x'));
        const auto tooLong = longWinded.read();
        ASSERT_TRUE(tooLong);
        EXPECT_EQ(tooLong->closeStatus(), 1009);

        Client piecemeal = client();
        ASSERT_EQ(piecemeal.upgrade(line()), 101);
        piecemeal.sendFrame(0x01, std::string(600'000, 'x'));
        piecemeal.sendFrame(0x00, std::string(600'000, 'x'));
        const auto tooMuch = piecemeal.read();
        ASSERT_TRUE(tooMuch);
        EXPECT_EQ(tooMuch->closeStatus(), 1009);

        Client binary = client();
        ASSERT_EQ(binary.upgrade(line()), 101);
        binary.sendFrame(0x82, "bytes");
        const auto noText = binary.read();
        ASSERT_TRUE(noText);
        EXPECT_EQ(noText->closeStatus(), 1003);
    });
    EXPECT_TRUE(notes_.messages.empty());
}

TEST_F(ServerTest, WhatIsNoHttpHarmsNobody) {
    serve([&] {
        Client noise = client();
        noise.send(std::string("\x16\x03\x01\x00\xff\x01\r\n\r\n", 10) +
                   std::string(100000, '\xff'));
        Client endless = client();
        endless.send("GET /?key=" + std::string(100000, 'a') + " HTTP/1.1\r\n\r\n");
        EXPECT_NE(endless.status(), 200);
        EXPECT_EQ(client().get("/?key=" + std::string(key)), 200);
    });
}

// Half of the descriptors are the clients' own.
void allowManyDescriptors() {
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = std::min<rlim_t>(limit.rlim_max, 4096);
    setrlimit(RLIMIT_NOFILE, &limit);
}

// All are told so; then it goes on as before.
TEST_F(ServerTest, AThousandConnectionsAreRefusedWithAStatus) {
    allowManyDescriptors();
    std::map<int, int> statuses;
    serve([&] {
        Client before = client();
        ASSERT_EQ(before.upgrade(line()), 101);
        {
            std::vector<Client> crowd;
            for (int i = 0; i < 1000; ++i) crowd.push_back(client());
            for (Client& each : crowd) each.send("GET / HTTP/1.1\r\nHost: 127.0.0.1\r\n\r\n");
            for (Client& each : crowd) ++statuses[each.status()];
        }
        before.sendText("still there");
        before.sendText("shut me out");
        EXPECT_TRUE(before.read());
        EXPECT_EQ(client().get("/?key=" + std::string(key)), 200);
    });
    EXPECT_GE(statuses[403], 1);
    EXPECT_GE(statuses[503], 1000 - 64);
    EXPECT_EQ(statuses[403] + statuses[503], 1000);
    EXPECT_EQ(notes_.messages.front(), "still there");
}

TEST_F(ServerTest, MorePagesThanThereMayBeAreRefused) {
    serve([&] {
        std::vector<Client> pages;
        for (int i = 0; i < 16; ++i) {
            pages.push_back(client());
            EXPECT_EQ(pages.back().upgrade(line()), 101);
        }
        EXPECT_EQ(client().upgrade(line()), 503);
    });
    EXPECT_EQ(notes_.joins, 16);
}

// Who does not read is not asked for more than the system takes from the server; another goes on.
TEST_F(ServerTest, ASlowReaderSlowsNobody) {
    const std::string megabyte(std::size_t{1} << 20, 'x');
    std::map<ClientId, int> told;
    notes_.tell = [&](ClientId client) {
        ++told[client];
        return Outgoing{true, megabyte};
    };
    serve([&] {
        Client slow = client();
        ASSERT_EQ(slow.upgrade(line()), 101);
        Client quick = client();
        ASSERT_EQ(quick.upgrade(line()), 101);
        for (int i = 0; i < 100; ++i) {
            const auto message = quick.read();
            ASSERT_TRUE(message);
            EXPECT_EQ(message->payload.size(), megabyte.size());
        }
    });
    EXPECT_LE(told[1], 20);
    EXPECT_GE(told[2], 100);
}

}  // namespace
}  // namespace simulator::serve::tests
