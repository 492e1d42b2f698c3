#include "Tests/Project/Markdown.h"
#include "Tests/Project/SourceTree.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>

using namespace Project;

namespace {

const std::filesystem::path examples = std::filesystem::path(KIVUICORE_SOURCE_ROOT) / "Docs/examples";

std::string guide() { return contentsOf(examples / "../guide.md"); }

/// Each line without what it is indented by, so that an excerpt can be found wherever it stands.
std::string withoutIndentation(const std::string& code) {
    std::istringstream lines(code);
    std::string result;
    for (std::string line; std::getline(lines, line);) {
        const auto begin = line.find_first_not_of(' ');
        result += (begin == std::string::npos ? "" : line.substr(begin)) + "\n";
    }
    return result;
}

bool isExcerpt(const std::string& excerpt, const std::string& whole) {
    return ("\n" + withoutIndentation(whole)).find("\n" + withoutIndentation(excerpt)) != std::string::npos;
}

/// All files of the examples with that ending, one after the other.
std::string allExamples(const std::string& extension) {
    std::string all;
    for (const auto& entry : std::filesystem::directory_iterator(examples)) {
        if (entry.path().extension() == extension)
            all += contentsOf(entry.path());
    }
    return all;
}

} // namespace

TEST(Guide, CodeBlocksAreFoundByTheirLanguage) {
    const std::string markdown =
        "a\n```sh\nls\n```\n```cpp\nint a;\nint b;\n```\n```cpp\nint c;\n```\n```cpp\nint d;\n";
    EXPECT_EQ(codeBlocks(markdown, "cpp"), (std::vector<std::string>{"int a;\nint b;\n", "int c;\n"}));
    EXPECT_TRUE(codeBlocks("```sh\nls\n```\n", "cpp").empty());
}

TEST(Guide, ExcerptIsWholeLinesInTheirOrder) {
    const std::string whole = "int main() {\n    int a;\n    int b;\n}\n";
    EXPECT_TRUE(isExcerpt("int a;\nint b;\n", whole));
    EXPECT_TRUE(isExcerpt("int main() {\n", whole));
    EXPECT_FALSE(isExcerpt("int b;\nint a;\n", whole));
    EXPECT_FALSE(isExcerpt("main() {\n", whole));
    EXPECT_FALSE(isExcerpt("int\n", whole));
}

TEST(Guide, ItsCodeIsTakenFromTheExamplesThatAreBuiltAndRun) {
    const std::string code = allExamples(".cpp");
    const std::vector<std::string> blocks = codeBlocks(guide(), "cpp");
    ASSERT_FALSE(blocks.empty());
    for (const std::string& block : blocks) {
        EXPECT_TRUE(isExcerpt(block, code)) << block;
    }
}

TEST(Guide, WhatItSaysIsPrintedIsWhatTheExamplesMustPrint) {
    const std::string printed = allExamples(".out");
    const std::vector<std::string> blocks = codeBlocks(guide(), "text");
    ASSERT_FALSE(blocks.empty());
    for (const std::string& block : blocks) {
        EXPECT_TRUE(isExcerpt(block, printed)) << block;
    }
}

TEST(Guide, ItsFirstBarTakesFifteenLinesAtMost) {
    const std::string sample = contentsOf(examples / "first_bar.cpp");
    ASSERT_FALSE(sample.empty());
    EXPECT_LE(std::count(sample.begin(), sample.end(), '\n'), 15);
    EXPECT_EQ(codeBlocks(guide(), "cpp").front(), sample);
}

TEST(Guide, EveryExampleIsInItOrInTheReadme) {
    const std::string documents = guide() + contentsOf(examples / "../../README.md");
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(examples)) {
        if (entry.path().extension() != ".cpp")
            continue;
        ++count;
        bool isLinked = documents.find("examples/" + entry.path().filename().string()) != std::string::npos;
        for (const std::string& block : codeBlocks(documents, "cpp")) {
            isLinked = isLinked || block == contentsOf(entry.path());
        }
        EXPECT_TRUE(isLinked) << entry.path().filename();
    }
    EXPECT_GE(count, 4);
}
