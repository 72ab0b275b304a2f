#include "simulator/scenario/markup.hpp"

namespace simulator::scenario {

std::string escaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        switch (c) {
            case '&':
                result += "&amp;";
                break;
            case '<':
                result += "&lt;";
                break;
            case '>':
                result += "&gt;";
                break;
            case '"':
                result += "&quot;";
                break;
            case '\n':
            case '\t':
                result += c;
                break;
            default:
                if (static_cast<unsigned char>(c) >= 0x20) result += c;
        }
    }
    return result;
}

}  // namespace simulator::scenario
