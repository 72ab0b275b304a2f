// Carrying statements out, and what their handlers can ask of a line.
#include "simulator/scenario/session.hpp"

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <utility>

#include "simulator/runtime/black_box.hpp"
#include "simulator/runtime/date.hpp"
#include "simulator/scenario/line.hpp"
#include "simulator/scenario/objective_c.hpp"
#include "simulator/scenario/raised.hpp"

namespace simulator::scenario {

namespace {
bool isBoot(const Statement& statement) { return statement.form->keyword() == "boot"; }
}  // namespace

Session::Session(Phone& phone, std::string file, std::filesystem::path pictures,
                 std::ostream& output)
    : phone_(phone),
      file_(std::move(file)),
      pictures_(std::move(pictures)),
      output_(output),
      evaluate_(phone_, names_) {
    watchExceptions();
}

void Session::run(const Statement& statement) {
    const AutoreleasePool pool;
    BlackBox* box = BlackBox::ofThisProcess();
    if (box != nullptr) box->statement(statement.line, statement.text);
    try {
        carryOut(statement);
    } catch (const std::exception& error) {
        fail(statement, error.what());
    } catch (...) {
        const std::string text = takeRaised();
        if (raised_.empty()) raised_ = text;
        fail(statement, "raised " + text);
    }
    if (box != nullptr) box->counts(held_, failed_);
}

void Session::carryOut(const Statement& statement) {
    if (statement.form->phase == Phase::booted && !booted_)
        throw EvaluationError("the phone has not booted");
    Line line(*this, statement);
    statement.form->run(line);
    if (isBoot(statement)) booted_ = true;
    if (statement.form->keyword() == "let") phone_.named(statement.text);
    // Messages to objects are recorded as they were written.
    if (statement.form->keyword() == "do" || statement.form->keyword() == "interrupt")
        phone_.sent(statement.text);
}

void Session::fail(const Statement& statement, const std::string& why) {
    // What comes after a phone that did not boot could only fail as well.
    if (isBoot(statement)) over_ = true;
    const std::string expected = statement.withoutKeyword("expect");
    failed(
        {statement.line, statement.text, expected, why,
         expected.empty() ? statement.text + ": " + why : "expected " + expected + ", but " + why});
}

void Session::failed(const Failure& failure) {
    ++failed_;
    say(file_ + ":" + std::to_string(failure.line) + ": " + failure.message);
    if (heardFailure_) heardFailure_(failure);
}

void Session::say(const std::string& text) {
    // Flushed line by line, so that nothing is lost when the phone ends the process.
    output_ << text << std::endl;
}

void Session::sayCounts() {
    say(std::to_string(held_) + " held, " + std::to_string(failed_) + " failed");
}

Phone& Line::phone() { return session_.phone_; }

const std::vector<Argument>& Line::all(std::string_view slot) const {
    static const std::vector<Argument> none;
    const auto found = statement_.arguments.find(slot);
    return found == statement_.arguments.end() ? none : found->second;
}

bool Line::given(std::string_view slot) const { return !all(slot).empty(); }

const std::string& Line::word(std::string_view slot) const {
    return std::get<std::string>(all(slot).at(0));
}

std::vector<std::string> Line::words(std::string_view slot) const {
    std::vector<std::string> result;
    for (const Argument& argument : all(slot)) result.push_back(std::get<std::string>(argument));
    return result;
}

const nlohmann::json& Line::json(std::string_view slot) const {
    return *std::get<JsonPointer>(all(slot).at(0));
}

Comparison Line::comparison(std::string_view slot) const {
    return std::get<Comparison>(all(slot).at(0));
}

const Expression& Line::expression(std::string_view slot, std::size_t index) const {
    return *std::get<ExpressionPointer>(all(slot).at(index));
}

Value Line::value(std::string_view slot, std::size_t index) {
    return session_.evaluate_(expression(slot, index));
}

std::vector<Value> Line::values(std::string_view slot) {
    std::vector<Value> result;
    for (std::size_t index = 0; index < all(slot).size(); ++index)
        result.push_back(value(slot, index));
    return result;
}

objc_object* Line::object(std::string_view slot) {
    const Value worth = value(slot);
    const auto result = asObject(worth);
    if (!result) throw EvaluationError(printed(worth) + " is no object");
    return *result;
}

objc_object* Line::view(std::string_view slot) {
    objc_object* result = object(slot);
    if (result == nullptr) throw EvaluationError("there is no view");
    return result;
}

std::vector<Event> Line::events(std::string_view slot) const {
    std::vector<Event> result;
    for (const Argument& argument : all(slot)) result.push_back(std::get<Event>(argument));
    return result;
}

double Line::number(std::string_view slot) {
    const Value worth = value(slot);
    const auto result = asNumber(worth);
    if (!result) throw EvaluationError(printed(worth) + " is no number");
    return static_cast<double>(result->value);
}

double Line::seconds(std::string_view slot) {
    const double result = number(slot);
    if (!(result >= 0 && std::isfinite(result)))
        throw EvaluationError(expression(slot).text + " is no time to let pass");
    return result;
}

double Line::date(std::string_view day, std::string_view time) {
    const std::chrono::seconds start = dayFrom(word(day))->time_since_epoch();
    return static_cast<double>((start + *timeOfDayFrom(word(time))).count());
}

int Line::count(std::string_view slot) {
    const double result = number(slot);
    if (!(result >= 0 && result <= std::numeric_limits<int>::max()) || std::trunc(result) != result)
        throw EvaluationError(expression(slot).text + " is no whole number from 0 on");
    return static_cast<int>(result);
}

PullPhase Line::pullPhase() const {
    if (chose("began")) return PullPhase::began;
    if (chose("ended")) return PullPhase::ended;
    if (chose("cancelled")) return PullPhase::cancelled;
    return PullPhase::updated;
}

std::filesystem::path Line::picture(std::string_view slot) {
    std::filesystem::path file = session_.pictures_ / word(slot);
    std::error_code error;
    if (file.has_parent_path()) std::filesystem::create_directories(file.parent_path(), error);
    if (error)
        throw EvaluationError("cannot make " + file.parent_path().string() + ": " +
                              error.message());
    return file;
}

RecordingPhone& Line::recording() { return session_.phone_; }

void Line::print(const std::string& text) { session_.say(text); }

void Line::remark(const std::string& text) {
    session_.say("note: " + session_.file_ + ":" + std::to_string(statement_.line) + ": " + text);
}

void Line::name(const std::string& variable, const Value& value) {
    session_.names_.set(variable, value);
}

void Line::expect(bool held, const std::string& got) { expect(held, "", got); }

void Line::expect(bool held, const std::string& wanted, const std::string& got) {
    if (held) {
        ++session_.held_;
        return;
    }
    const std::string expected = statement_.withoutKeyword("expect") + wanted;
    session_.failed(
        {statement_.line, statement_.text, expected, got, "expected " + expected + ", got " + got});
}

void Line::expectCount(int got, std::string_view slot) {
    expect(equal(integerValue(got), value(slot)), std::to_string(got));
}

const std::string* Line::raised() const {
    return session_.raised_.empty() ? nullptr : &session_.raised_;
}

}  // namespace simulator::scenario
