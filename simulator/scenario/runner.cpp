// A file from beginning to end.
#include "simulator/scenario/runner.hpp"

#include "simulator/scenario/parser.hpp"
#include "simulator/scenario/session.hpp"

namespace simulator::scenario {
namespace {

constexpr int allHeld = 0;
constexpr int someFailed = 1;
constexpr int malformed = 2;

}  // namespace

int runFile(const std::string& file, const RunOptions& options, const PhoneMaker& makePhone,
            std::ostream& output, std::ostream& errors) {
    std::vector<Statement> statements;
    try {
        statements = parse(readFile(file));
    } catch (const SyntaxError& error) {
        errors << error.report(file) << std::endl;
        return malformed;
    } catch (const std::exception& error) {
        errors << SyntaxError({}, error.what()).report(file) << std::endl;
        return malformed;
    }
    std::unique_ptr<Phone> phone;
    try {
        phone = makePhone({options.root, options.real});
    } catch (const std::exception& error) {
        errors << file << ": there is no phone to run it on: " << error.what() << std::endl;
        return someFailed;
    }
    const std::filesystem::path beside = std::filesystem::path(file).parent_path();
    Session session(*phone, file, options.pictures.empty() ? beside : options.pictures, output);
    for (const Statement& statement : statements) session.run(statement);
    session.sayCounts();
    return session.failed() == 0 ? allHeld : someFailed;
}

}  // namespace simulator::scenario
