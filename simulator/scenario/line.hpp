// What the handler of a statement sees: the phone, the statement's arguments by the slot of its
// form, worked out when they are asked for, and where its outcome goes.
#pragma once

#include <filesystem>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/scenario/form.hpp"
#include "simulator/scenario/phone.hpp"

namespace simulator::scenario {

class RecordingPhone;
class Session;

class Line {
  public:
    Line(Session& session, const Statement& statement) : session_(session), statement_(statement) {}

    Phone& phone();
    RecordingPhone& recording();

    // Whether an optional slot was filled in.
    bool given(std::string_view slot) const;
    const std::string& word(std::string_view slot) const;
    std::vector<std::string> words(std::string_view slot) const;
    const std::string& choice() const { return statement_.choice; }
    bool chose(std::string_view word) const { return statement_.choice == word; }
    const nlohmann::json& json(std::string_view slot) const;
    Comparison comparison(std::string_view slot) const;
    std::vector<Event> events(std::string_view slot) const;
    const Expression& expression(std::string_view slot, std::size_t index = 0) const;

    // These send messages and throw EvaluationError when a value is of the wrong kind.
    Value value(std::string_view slot, std::size_t index = 0);
    std::vector<Value> values(std::string_view slot);
    objc_object* object(std::string_view slot);
    double number(std::string_view slot);
    double seconds(std::string_view slot);
    int count(std::string_view slot);
    // Seconds since the first of January 1970.
    double date(std::string_view day, std::string_view time);
    // The object of a slot that must have one.
    objc_object* view(std::string_view slot);
    PullPhase pullPhase() const;

    // A picture's file, below the folder for pictures.
    std::filesystem::path picture(std::string_view slot);

    void print(const std::string& text);
    // Tells of something that is carried out all the same.
    void remark(const std::string& text);
    void name(const std::string& variable, const Value& value);
    // What an `expect` is about holds, or something else was got.
    void expect(bool held, const std::string& got);
    // The same; `wanted` completes what was expected: "expected EXPR to be YES …".
    void expect(bool held, const std::string& wanted, const std::string& got);
    // Expects a count of exactly that many.
    void expectCount(int got, std::string_view slot);
    // What a statement or a message has raised so far, if anything.
    const std::string* raised() const;

  private:
    const std::vector<Argument>& all(std::string_view slot) const;

    Session& session_;
    const Statement& statement_;
};

}  // namespace simulator::scenario
