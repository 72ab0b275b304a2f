#include "simulator/loader/shape.hpp"

#include <cctype>
#include <string_view>

namespace simulator::loader {

namespace {

class ShapeReader {
  public:
    explicit ShapeReader(std::string_view encoding) : rest_(encoding) {}

    std::string read() {
        while (!rest_.empty()) type();
        return std::move(shape_);
    }

  private:
    char take() {
        char next = rest_.front();
        rest_.remove_prefix(1);
        return next;
    }
    bool at(char letter) const { return !rest_.empty() && rest_.front() == letter; }

    void type() {
        constexpr std::string_view qualifiers = "rnNoORV+-";
        const char letter = take();
        if (std::isdigit(static_cast<unsigned char>(letter)) ||
            qualifiers.find(letter) != std::string_view::npos)
            return;
        switch (letter) {
            case '@':
                return object();
            case '^':
                return pointer();
            case '{':
                return structure();
            default:
                shape_ += common(letter);
        }
    }

    // Booleans are a character on some runtimes; signs do not matter to how integers travel.
    static char common(char letter) {
        constexpr std::string_view letters = "cCSILlQ";
        constexpr std::string_view same = "BBsiqqq";
        const std::size_t index = letters.find(letter);
        return index == std::string_view::npos ? letter : same[index];
    }

    // A block and an object of a named class are objects.
    void object() {
        shape_ += '@';
        if (at('?')) take();
        if (!at('"')) return;
        take();
        while (!rest_.empty() && take() != '"') {
        }
    }

    // What is pointed to does not matter.
    void pointer() {
        shape_ += '^';
        const std::size_t length = shape_.size();
        if (!rest_.empty()) type();
        shape_.resize(length);
    }

    void structure() {
        shape_ += '{';
        const std::size_t name = rest_.find_first_of("=}");
        rest_.remove_prefix(name == std::string_view::npos ? rest_.size() : name);
        if (at('=')) take();
        while (!rest_.empty() && !at('}')) type();
        if (at('}')) take();
        shape_ += '}';
    }

    std::string_view rest_;
    std::string shape_;
};

}  // namespace

std::string shape(const char* encoding) { return ShapeReader(encoding ? encoding : "").read(); }

}  // namespace simulator::loader
