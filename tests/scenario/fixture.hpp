// Runs scenario text on a fake phone and keeps what came out.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "simulator/scenario/parser.hpp"
#include "simulator/scenario/session.hpp"
#include "tests/scenario/fake_phone.hpp"
#include "tests/scenario/specimen.hpp"

namespace simulator::scenario {

class ScenarioTest : public ::testing::Test {
  protected:
    void SetUp() override { registerSpecimen(); }

    // What the statements print, without the line of counts.
    std::string run(const std::string& text) {
        std::ostringstream output;
        Session session(phone, "t.scenario", "pictures-of-this-test", output);
        for (const Statement& statement : parse(text)) {
            session.run(statement);
            if (session.over()) break;
        }
        held = session.held();
        failed = session.failed();
        return output.str();
    }

    // How `print EXPR` prints, without the end of the line.
    std::string value(const std::string& expression) {
        std::string text = run("print " + expression);
        if (text.ends_with('\n')) text.pop_back();
        return text;
    }

    bool holds(const std::string& expectation) {
        run("expect " + expectation);
        EXPECT_EQ(held + failed, 1) << expectation;
        return held == 1;
    }

    FakePhone phone;
    int held = 0;
    int failed = 0;
};

}  // namespace simulator::scenario
