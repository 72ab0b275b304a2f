// Screens that are lists: notes, mail, conversations, settings, calls, and the one for applications
// without a screen of their own.
#include <algorithm>
#include <string>

#include "simulator/rendering/app_screens.hpp"
#include "simulator/rendering/icon_art.hpp"
#include "simulator/rendering/nodes.hpp"
#include "simulator/rendering/surface.hpp"

namespace simulator::rendering {

namespace {

struct Row {
    const char* title;
    const char* detail;
    const char* when;
};

constexpr Row notes[] = {
    {"Weekend in the mountains", "Boots, map, thermos, the good camera", "9:12"},
    {"Bread", "500 g flour, 350 g water, 10 g salt, patience", "Yesterday"},
    {"Books to read", "The one about lighthouses, then the long one", "Monday"},
    {"Ideas for the garden", "Lavender along the wall, a bench in the shade", "Monday"},
    {"Gift for Mara", "A record, or the blue teapot from the corner shop", "Sunday"},
    {"Flat measurements", "Kitchen 2.40 by 3.10, window 1.15", "Saturday"},
    {"Choir", "Rehearsal moved to Thursday, bring the green folder", "28 Aug"},
    {"Wine list", "The dry one from the little hill", "21 Aug"},
};

constexpr Row mails[] = {
    {"Mara Lindqvist", "Pictures from the lake", "9:38"},
    {"Harbour Library", "Your books are ready to be picked up", "9:02"},
    {"Jonas Okafor", "Re: Thursday's plan", "8:47"},
    {"Northern Railways", "Your journey on Friday", "Yesterday"},
    {"Ines Duarte", "The recipe that you asked for", "Yesterday"},
    {"Corner Cinema", "This week: three old films", "Monday"},
    {"Tomasz Wilk", "Keys", "Monday"},
    {"Bicycle Workshop", "Your bicycle is ready", "Sunday"},
};
constexpr const char* mailTexts[] = {
    "I finally sorted them. The one with the boat is my favourite, see for yourself.",
    "Two items are waiting for you at the desk until the end of the week.",
    "Works for me. Shall we meet at the bridge and walk from there?",
    "Coach 7, seats 41 and 42 by the window. Please be on the platform early.",
    "It is really only butter, sugar and time. Do not open the oven.",
    "Matinees at two, and the late show with a live piano on Saturday.",
    "They are with the neighbour on the second floor. Ring twice.",
    "New chain, new brake pads, and the bell sings again.",
};

constexpr Row chats[] = {
    {"Mara", "See you at the bridge at six!", "9:40"},
    {"Climbing Group", "Jonas: who has the long rope?", "9:21"},
    {"Dad", "The tomatoes are doing very well.", "8:55"},
    {"Ines", "Ha! Told you so.", "Yesterday"},
    {"Tomasz", "Found your umbrella", "Yesterday"},
    {"Harbour Dental", "Reminder: Thursday, 10:15", "Monday"},
    {"Aiko", "That song is stuck in my head now", "Monday"},
    {"Neighbours", "Parcel for number 12 is with us", "Sunday"},
};

constexpr Row calls[] = {
    {"Mara Lindqvist", "mobile", "9:31"},     {"Dad", "home", "Yesterday"},
    {"Jonas Okafor", "mobile", "Yesterday"},  {"Harbour Dental", "work", "Monday"},
    {"Ines Duarte", "mobile", "Monday"},      {"Tomasz Wilk", "mobile", "Sunday"},
    {"Bicycle Workshop", "work", "Saturday"}, {"Aiko Mori", "mobile", "Saturday"},
    {"Corner Cinema", "work", "Friday"},
};

constexpr unsigned faces[] = {0xff8a65, 0x5c9dff, 0x6fcf7c, 0xb48bff,
                              0xf7b733, 0x4cc8c0, 0xf0679e, 0x8d97a8};

Colour face(std::size_t i) { return hex(faces[i % std::size(faces)]); }

double widthOf(const Node& screen) { return screen.bounds.size.width; }

void addWhen(Node& screen, double y, const char* when, const AppStyle& style) {
    screen.children.push_back(textNode({{widthOf(screen) - 130, y}, {96, 20}}, when, 15, 400,
                                       style.secondary, TextAlignment::right));
    screen.children.push_back(
        symbolNode({{widthOf(screen) - 29, y + 4}, {12, 12}}, "chevron", style.faint));
}

Node roundFace(Point at, double side, const std::string& name, std::size_t index) {
    Node disc = fillNode({at, {side, side}}, face(index), side / 2);
    disc.continuousCorners = false;
    disc.children.push_back(textNode({{0, 0}, {side, side}}, name.substr(0, 1), side * 0.42, 600,
                                     {1, 1, 1, 1}, TextAlignment::center));
    return disc;
}

}  // namespace

Node notesScreen(Size size, bool dark) {
    const AppStyle style = appStyle(dark);
    const Colour accent = hex(0xe5a50a);
    Node screen = appWindow(size, style.grouped);
    screen.children.push_back(symbolNode({{14, topInset + 10}, {22, 22}}, "chevron.left", accent));
    screen.children.push_back(
        textNode({{38, topInset + 10}, {120, 22}}, "Folders", 17, 400, accent));
    double y = addSearchField(screen, addLargeTitle(screen, "Notes", style), style);
    constexpr double rowHeight = 66;
    Node card =
        fillNode({{margin - 4, y}, {size.width - 2 * margin + 8, rowHeight * std::size(notes)}},
                 style.card, 12);
    const double width = card.bounds.size.width;
    y = 0;
    for (const Row& row : notes) {
        card.children.push_back(
            textNode({{16, y + 10}, {width - 32, 22}}, row.title, 17, 600, style.ink));
        card.children.push_back(textNode({{16, y + 34}, {78, 20}}, row.when, 15, 400, style.ink));
        card.children.push_back(
            textNode({{96, y + 34}, {width - 112, 20}}, row.detail, 15, 400, style.secondary));
        y += rowHeight;
        if (&row != &notes[std::size(notes) - 1]) addLine(card, 16, y, width - 16, style);
    }
    screen.children.push_back(std::move(card));
    Node bar = fillNode({{0, size.height - 83}, {size.width, 83}}, style.bar);
    addLine(bar, 0, 0, size.width, style);
    bar.children.push_back(textNode({{0, 12}, {size.width, 20}}, "8 Notes", 11, 400, style.ink,
                                    TextAlignment::center));
    bar.children.push_back(symbolNode({{size.width - 46, 10}, {25, 25}}, "compose", accent));
    screen.children.push_back(std::move(bar));
    return screen;
}

Node mailScreen(Size size, bool dark) {
    const AppStyle style = appStyle(dark);
    const Colour accent = hex(0x0a84ff);
    Node screen = appWindow(size, style.ground);
    screen.children.push_back(symbolNode({{14, topInset + 10}, {22, 22}}, "chevron.left", accent));
    screen.children.push_back(
        textNode({{38, topInset + 10}, {120, 22}}, "Mailboxes", 17, 400, accent));
    screen.children.push_back(textNode({{size.width - 80, topInset + 10}, {60, 22}}, "Edit", 17,
                                       400, accent, TextAlignment::right));
    double y = addSearchField(screen, addLargeTitle(screen, "Inbox", style), style);
    constexpr double rowHeight = 86;
    constexpr double left = 34;
    for (std::size_t i = 0; i < std::size(mails); ++i, y += rowHeight) {
        if (i < 3) screen.children.push_back(fillNode({{13, y + 14}, {10, 10}}, accent, 5));
        screen.children.push_back(textNode({{left, y + 8}, {size.width - left - 130, 22}},
                                           mails[i].title, 17, 600, style.ink));
        addWhen(screen, y + 9, mails[i].when, style);
        screen.children.push_back(textNode({{left, y + 30}, {size.width - left - 20, 19}},
                                           mails[i].detail, 15, 400, style.ink));
        screen.children.push_back(textNode({{left, y + 48}, {size.width - left - 20, 36}},
                                           mailTexts[i], 14, 400, style.secondary,
                                           TextAlignment::left, 2));
        addLine(screen, left, y + rowHeight, size.width - left, style);
    }
    Node bar = fillNode({{0, size.height - 83}, {size.width, 83}}, style.bar);
    addLine(bar, 0, 0, size.width, style);
    bar.children.push_back(textNode({{0, 12}, {size.width, 20}}, "Updated Just Now", 11, 400,
                                    style.ink, TextAlignment::center));
    bar.children.push_back(symbolNode({{size.width - 46, 10}, {25, 25}}, "compose", accent));
    screen.children.push_back(std::move(bar));
    return screen;
}

Node messagesScreen(Size size, bool dark) {
    const AppStyle style = appStyle(dark);
    Node screen = appWindow(size, style.ground);
    screen.children.push_back(
        symbolNode({{size.width - 46, topInset + 8}, {25, 25}}, "compose", hex(0x0a84ff)));
    double y = addSearchField(screen, addLargeTitle(screen, "Messages", style), style);
    constexpr double rowHeight = 76;
    for (std::size_t i = 0; i < std::size(chats); ++i, y += rowHeight) {
        screen.children.push_back(roundFace({margin, y + 14}, 46, chats[i].title, i));
        screen.children.push_back(
            textNode({{82, y + 13}, {size.width - 220, 22}}, chats[i].title, 17, 600, style.ink));
        addWhen(screen, y + 14, chats[i].when, style);
        screen.children.push_back(textNode({{82, y + 36}, {size.width - 110, 22}}, chats[i].detail,
                                           15, 400, style.secondary));
        addLine(screen, 82, y + rowHeight, size.width - 82, style);
    }
    return screen;
}

Node settingsScreen(Size size, bool dark) {
    struct Entry {
        const char* symbol;
        unsigned colour;
        const char* title;
        const char* value;
        bool last;
    };
    constexpr Entry entries[] = {
        {"airplane", 0xff9500, "Airplane Mode", "", false},
        {"wifi", 0x0a84ff, "Wi-Fi", "Harbour", false},
        {"bluetooth", 0x0a84ff, "Bluetooth", "On", false},
        {"cellular", 0x34c759, "Cellular", "", true},
        {"bell", 0xff3b30, "Notifications", "", false},
        {"speaker", 0xff2d55, "Sounds", "", false},
        {"moon", 0x5856d6, "Do Not Disturb", "", true},
        {"gear", 0x8e8e93, "General", "", false},
        {"sun", 0x0a84ff, "Display & Brightness", "", true},
    };
    const AppStyle style = appStyle(dark);
    Node screen = appWindow(size, style.grouped);
    double y = addLargeTitle(screen, "Settings", style) + 4;
    const double width = size.width - 2 * margin + 8;
    Node owner = fillNode({{margin - 4, y}, {width, 80}}, style.card, 12);
    owner.children.push_back(roundFace({14, 11}, 58, "Alex", 3));
    owner.children.push_back(
        textNode({{86, 17}, {width - 120, 26}}, "Alex Morgenroth", 20, 400, style.ink));
    owner.children.push_back(textNode({{86, 43}, {width - 120, 18}}, "Account, Media & Purchases",
                                      13, 400, style.secondary));
    owner.children.push_back(symbolNode({{width - 28, 34}, {12, 12}}, "chevron", style.faint));
    screen.children.push_back(std::move(owner));
    y += 80 + 30;
    constexpr double rowHeight = 46;
    for (std::size_t i = 0; i < std::size(entries);) {
        std::size_t end = i;
        while (!entries[end].last) ++end;
        Node card =
            fillNode({{margin - 4, y}, {width, rowHeight * static_cast<double>(end - i + 1)}},
                     style.card, 12);
        for (double top = 0; i <= end; ++i, top += rowHeight) {
            const Entry& entry = entries[i];
            Node tile = fillNode({{14, top + 8.5}, {29, 29}}, hex(entry.colour), 7);
            tile.children.push_back(symbolNode({{4.5, 4.5}, {20, 20}}, entry.symbol, {1, 1, 1, 1}));
            card.children.push_back(std::move(tile));
            card.children.push_back(
                textNode({{58, top}, {width - 160, rowHeight}}, entry.title, 17, 400, style.ink));
            card.children.push_back(textNode({{width - 136, top}, {100, rowHeight}}, entry.value,
                                             17, 400, style.secondary, TextAlignment::right));
            card.children.push_back(
                symbolNode({{width - 28, top + 17}, {12, 12}}, "chevron", style.faint));
            if (i < end) addLine(card, 58, top + rowHeight, width - 58, style);
        }
        y += card.bounds.size.height + 30;
        screen.children.push_back(std::move(card));
    }
    return screen;
}

Node phoneScreen(Size size, bool dark) {
    const AppStyle style = appStyle(dark);
    Node screen = appWindow(size, style.ground);
    double y = addLargeTitle(screen, "Recents", style);
    constexpr double rowHeight = 62;
    for (std::size_t i = 0; i < std::size(calls); ++i, y += rowHeight) {
        const bool missed = i % 4 == 1;
        addLine(screen, 72, y, size.width - 72, style);
        screen.children.push_back(roundFace({margin, y + 11}, 40, calls[i].title, i));
        screen.children.push_back(textNode({{72, y + 9}, {size.width - 210, 24}}, calls[i].title,
                                           17, 600, missed ? hex(0xff3b30) : style.ink));
        screen.children.push_back(
            textNode({{72, y + 33}, {160, 18}}, calls[i].detail, 14, 400, style.secondary));
        screen.children.push_back(textNode({{size.width - 130, y + 20}, {110, 22}}, calls[i].when,
                                           15, 400, style.secondary, TextAlignment::right));
    }
    constexpr Tab tabs[] = {{"timer", "Recents"},
                            {"star", "Favourites"},
                            {"person", "Contacts"},
                            {"calculator", "Keypad"},
                            {"record", "Voicemail"}};
    addTabBar(screen, tabs, hex(0x0a84ff), style);
    return screen;
}

Node plainScreen(const std::string& bundleIdentifier, Size size, bool dark) {
    const AppStyle style = appStyle(dark);
    Node screen = appWindow(size, style.grouped);
    const double width = size.width - 2 * margin + 8;
    double y = addLargeTitle(screen, displayName(bundleIdentifier), style) + 4;
    Node card = fillNode({{margin - 4, y}, {width, 168}}, style.card, 16);
    card.children.push_back(
        imageNode({{width / 2 - 40, 22}, {80, 80}}, iconPicture(bundleIdentifier)));
    card.children.push_back(textNode({{16, 116}, {width - 32, 30}}, "Welcome back", 20, 600,
                                     style.ink, TextAlignment::center));
    screen.children.push_back(std::move(card));
    y += 168 + 18;
    Colour placeholder = style.secondary;
    placeholder.alpha = 0.22;
    for (std::size_t i = 0; y < size.height - bottomInset - 40; ++i, y += 88) {
        Node row = fillNode({{margin - 4, y}, {width, 76}}, style.card, 14);
        row.children.push_back(fillNode({{14, 14}, {48, 48}}, face(i + 1), 12));
        const double length = std::max(40.0, width - 150 - 24.0 * static_cast<double>(i % 3));
        row.children.push_back(fillNode({{76, 20}, {length, 12}}, placeholder, 6));
        row.children.push_back(fillNode({{76, 43}, {length * 0.62, 10}}, placeholder, 5));
        screen.children.push_back(std::move(row));
    }
    return screen;
}

}  // namespace simulator::rendering
