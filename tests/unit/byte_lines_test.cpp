// Text files as lines and as comma-delimited fields.
#include "base/byte_lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace tamblin {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

template <typename Reader>
std::vector<std::string> All(std::string_view bytes) {
    Reader reader(bytes);
    std::vector<std::string> items;
    while (const auto item = reader.Next())
        items.emplace_back(*item);
    return items;
}

TEST(LineReader, EndsLinesAtCrLfCrAndLf) {
    EXPECT_THAT(All<LineReader>(""), IsEmpty());
    EXPECT_THAT(All<LineReader>("a\r\nb\rc\nd\r\n"), ElementsAre("a", "b", "c", "d"));
    EXPECT_THAT(All<LineReader>("\r\n\r\na\r\n\r\n"), ElementsAre("", "", "a", ""));
    EXPECT_THAT(All<LineReader>("a\r\nb"), ElementsAre("a", "b"));
    const std::string bytes(" a, \"b\"\0c\r\n", 11);
    EXPECT_THAT(All<LineReader>(bytes), ElementsAre(bytes.substr(0, 9)));
}

TEST(FieldReader, SplitsAtCommasAndLineEnds) {
    const std::pair<std::string, std::vector<std::string>> cases[] = {
        {"", {}},
        {"a\r\nb\rc\nd", {"a", "b", "c", "d"}},
        {"a,b,c\r\n", {"a", "b", "c"}},
        {"\r\n\r\na\r\n", {"", "", "a"}},
        {",a,\r\nb", {"", "a", "", "b"}},
        {"  a b ,  c\r\n", {"a b ", "c"}},
        {"   \r\na", {"", "a"}},
        {"\"a, b\",\"c\"\r\nd", {"a, b", "c", "d"}},
        {"  \"a,b\"  ,c", {"a,b", "c"}},
        {"\"\"\r\na", {"", "a"}},
        {"a\"b\r\n", {"a\"b"}},
        {"\"a\r\nb\"", {"\"a", "b\""}},
        {"\"a\"b,c", {"\"a\"b", "c"}},
        {std::string("a\0b,c\0", 6), {std::string("a\0b", 3), std::string("c\0", 2)}},
        {"a,b", {"a", "b"}}};
    for (const auto& [bytes, fields] : cases)
        EXPECT_THAT(All<FieldReader>(bytes), ElementsAreArray(fields)) << bytes;
}

// A two-byte character whose second byte is a backslash stays whole; none has a comma or a quote.
TEST(FieldReader, KeepsTwoByteCharacters) {
    EXPECT_THAT(All<FieldReader>("\x95\x5C\x83\x5C\x94\x5C,a"),
                ElementsAre("\x95\x5C\x83\x5C\x94\x5C", "a"));
}

} // namespace
} // namespace tamblin
