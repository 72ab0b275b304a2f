#include "simulator/foundation/text_list.hpp"

#include <cctype>
#include <string>

#include "simulator/foundation/foundation_classes.hpp"

namespace simulator {

namespace {

using platform::NSMutableArray;
using platform::NSString;
using platform::Object;

bool isBare(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) ||
           std::string_view("_$/:.-").find(c) != std::string_view::npos;
}

class TextReader {
  public:
    TextReader(std::string_view text, int deepest) : rest_(text), deepest_(deepest) {}

    Object root() {
        Object value = readValue(0);
        skipBlanks();
        return rest_.empty() ? value : Object();
    }

  private:
    void skipBlanks() {
        for (;;) {
            while (!rest_.empty() && std::isspace(static_cast<unsigned char>(rest_.front()))) {
                rest_.remove_prefix(1);
            }
            if (rest_.starts_with("//")) {
                skipPast("\n");
            } else if (rest_.starts_with("/*")) {
                skipPast("*/");
            } else {
                return;
            }
        }
    }
    void skipPast(std::string_view end) {
        const std::size_t at = rest_.find(end);
        rest_.remove_prefix(at == std::string_view::npos ? rest_.size() : at + end.size());
    }
    bool takes(char c) {
        skipBlanks();
        if (!rest_.starts_with(c)) return false;
        rest_.remove_prefix(1);
        return true;
    }

    Object readValue(int depth) {
        if (depth > deepest_) return {};
        if (takes('{')) return readDictionary(depth);
        if (takes('(')) return readList(depth);
        if (takes('<')) return readData();
        return readString();
    }

    Object readDictionary(int depth) {
        auto found = platform::sendClass<NSMutableDictionary, "dictionary", NSMutableDictionary>();
        while (!takes('}')) {
            NSString key = readString();
            if (!key || !takes('=')) return {};
            Object value = readValue(depth + 1);
            if (!value || !takes(';')) return {};
            found.send<"setObject:forKey:">(value, key);
        }
        return found;
    }

    // A comma may stand behind the last.
    Object readList(int depth) {
        NSMutableArray found = NSMutableArray::empty();
        while (!takes(')')) {
            Object value = readValue(depth + 1);
            if (!value) return {};
            found.add(value);
            if (!takes(',')) return takes(')') ? Object(found) : Object();
        }
        return found;
    }

    Object readData() {
        std::string digits;
        while (!takes('>')) {
            if (rest_.empty() || !std::isxdigit(static_cast<unsigned char>(rest_.front()))) {
                return {};
            }
            digits += rest_.front();
            rest_.remove_prefix(1);
        }
        if (digits.size() % 2 != 0) return {};
        std::string bytes;
        for (std::size_t i = 0; i < digits.size(); i += 2) {
            bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
        }
        return platform::sendClass<NSData, "dataWithBytes:length:", NSData>(
            static_cast<const void*>(bytes.data()), static_cast<unsigned long>(bytes.size()));
    }

    NSString readString() {
        skipBlanks();
        if (rest_.empty()) return {};
        if (rest_.front() == '"' || rest_.front() == '\'') return readQuoted();
        std::string word;
        while (!rest_.empty() && isBare(rest_.front())) {
            word += rest_.front();
            rest_.remove_prefix(1);
        }
        return word.empty() ? NSString() : NSString::from(word.c_str());
    }

    NSString readQuoted() {
        const char quote = rest_.front();
        std::string text;
        for (rest_.remove_prefix(1); !rest_.empty() && rest_.front() != quote;
             rest_.remove_prefix(1)) {
            if (rest_.front() == '\\' && rest_.size() > 1) {
                rest_.remove_prefix(1);
                text += rest_.front() == 'n' ? '\n' : rest_.front() == 't' ? '\t' : rest_.front();
            } else {
                text += rest_.front();
            }
        }
        if (rest_.empty()) return {};
        rest_.remove_prefix(1);
        return NSString::from(text.c_str());
    }

    std::string_view rest_;
    int deepest_;
};

}  // namespace

Object readTextList(std::string_view text, int deepest) { return TextReader(text, deepest).root(); }

}  // namespace simulator
