// Which files are taken for the extension, and what is said of the others.
#include "simulator/phone/extension.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <span>

#include "tests/loader/image_builder.hpp"

namespace simulator::tests {
namespace {

class ExtensionFileTest : public testing::Test {
  protected:
    ExtensionFileTest() {
        std::string pattern = (std::filesystem::temp_directory_path() / "vantori-XXXXXX").string();
        folder_ = mkdtemp(pattern.data());
    }
    ~ExtensionFileTest() override { std::filesystem::remove_all(folder_); }

    std::filesystem::path file() const { return folder_ / "Extension.dylib"; }
    void write(std::span<const std::byte> bytes) const {
        std::ofstream stream(file(), std::ios::binary);
        stream.write(reinterpret_cast<const char*>(bytes.data()),
                     static_cast<std::streamsize>(bytes.size()));
    }
    std::string refusal() const {
        nameExtension(file());
        try {
            loadExtension();
            return "";
        } catch (const std::runtime_error& error) {
            return error.what();
        }
    }
    std::string named(const std::string& reason) const {
        return "the extension does not load: " + file().string() + ": " + reason;
    }

  private:
    std::filesystem::path folder_;
};

TEST_F(ExtensionFileTest, AMissingFileIsNamed) {
    EXPECT_EQ(refusal(), named("cannot open shared object file: No such file or directory"));
}

TEST_F(ExtensionFileTest, AnEmptyFileIsRefused) {
    write({});
    EXPECT_EQ(refusal(), named("it is empty"));
}

TEST_F(ExtensionFileTest, TextIsRefused) {
    const std::string text = "#!/bin/sh\n";
    write(std::as_bytes(std::span(text)));
    EXPECT_EQ(refusal(), named("it is no Mach-O file"));
}

TEST_F(ExtensionFileTest, ADamagedSharedObjectIsRefused) {
    const std::string text =
        "\x7f"
        "ELF and no more";
    write(std::as_bytes(std::span(text)));
    EXPECT_EQ(refusal(), named("file too short"));
}

TEST_F(ExtensionFileTest, ALibraryForAPhoneIsReadAndThenWantsAnArm64Phone) {
    const std::vector<std::byte> image = loader::tests::ImageBuilder{}.build();
    write(std::span(image).first(image.size() - 1));
    EXPECT_EQ(refusal(), named("the file ends inside the symbols' names"));
#if defined(__aarch64__)
    write(image);
    EXPECT_EQ(refusal(), "");
#else
    write(image);
    EXPECT_EQ(refusal(),
              named("it is for arm64: the phone built for arm64 runs it (scripts/test-device)"));
#endif
}

}  // namespace
}  // namespace simulator::tests
