// One file from beginning to end. Several files are in run_apart.cpp.
#include "simulator/scenario/runner.hpp"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "simulator/scenario/parser.hpp"
#include "simulator/scenario/session.hpp"

namespace simulator::scenario {
namespace {

constexpr int allHeld = 0;
constexpr int someFailed = 1;
constexpr int malformed = 2;

bool says(const std::vector<Statement>& statements, std::string_view keyword) {
    return std::any_of(statements.begin(), statements.end(), [keyword](const Statement& each) {
        return each.form->keyword() == keyword;
    });
}

bool saysSetting(const std::vector<Statement>& statements, const std::string& key) {
    return std::any_of(statements.begin(), statements.end(), [&key](const Statement& each) {
        return each.form->keyword() == "setting" &&
               std::get<std::string>(each.arguments.at("KEY").front()) == key;
    });
}

void setUp(Phone& phone, const std::vector<Statement>& statements, const RunOptions& options) {
    if (!options.device.empty() && !says(statements, "device")) phone.device(options.device);
    if (!options.system.empty() && !says(statements, "system")) phone.system(options.system);
    for (const auto& [key, value] : options.settings)
        if (!saysSetting(statements, key)) phone.setting(key, *value);
}

}  // namespace

int runFile(const std::string& file, const RunOptions& options, const PhoneMaker& makePhone,
            std::ostream& output, std::ostream& errors, const FailureHearer& record) {
    std::vector<Statement> statements;
    try {
        statements = parse(readFile(file));
    } catch (const SyntaxError& error) {
        errors << error.report(file) << std::endl;
        return malformed;
    } catch (const std::exception& error) {
        errors << file << ": cannot be read: " << error.what() << std::endl;
        return malformed;
    }
    std::unique_ptr<Phone> phone;
    try {
        phone = makePhone({options.root, options.real});
        setUp(*phone, statements, options);
    } catch (const std::exception& error) {
        errors << file << ": there is no phone to run it on: " << error.what() << std::endl;
        return someFailed;
    }
    const std::filesystem::path beside = std::filesystem::path(file).parent_path();
    Session session(*phone, file, options.pictures.empty() ? beside : options.pictures, output);
    if (record) {
        phone->keepLastSecond();
        session.onFailure([&](const Failure& failure) { record(*phone, failure); });
    }
    for (const Statement& statement : statements) {
        session.run(statement);
        if (session.over()) break;
    }
    session.sayCounts();
    return session.failed() == 0 ? allHeld : someFailed;
}

}  // namespace simulator::scenario
