#pragma once

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

namespace Project {

/// A folder that is there as long as the test.
class ScratchFolder : public testing::Test {
protected:
    void SetUp() override {
        const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
        root = std::filesystem::path(testing::TempDir()) /
               (std::string(test.test_suite_name()) + "-" + test.name());
        std::filesystem::remove_all(root);
    }
    void TearDown() override { std::filesystem::remove_all(root); }

    void write(const std::string& file, const std::string& contents) {
        std::filesystem::create_directories((root / file).parent_path());
        std::ofstream(root / file) << contents;
    }

    std::filesystem::path root;
};

} // namespace Project
