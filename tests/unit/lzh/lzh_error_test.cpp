// What is said of a failure.
#include "platform/lzh/lzh_error.h"

#include <gtest/gtest.h>

#include "platform/lzh/extractor.h"

namespace tamblin::lzh {
namespace {

struct FailureText {
    LzhFailure failure;
    int number;
    const char* text;
};

TEST(LzhError, EveryFailureHasItsNumberAndItsText) {
    const FailureText failures[] = {
        {LzhFailure::None, 0, "no error"},
        {LzhFailure::BadCommand, 1, "the command is not understood"},
        {LzhFailure::CannotOpenArchive, 2, "the archive cannot be opened"},
        {LzhFailure::CannotReadArchive, 3, "the archive cannot be read"},
        {LzhFailure::NotAnArchive, 4, "this is not an LZH archive"},
        {LzhFailure::DamagedHeader, 5, "the header is damaged"},
        {LzhFailure::UnknownMethod, 6, "the packing method is unknown"},
        {LzhFailure::DamagedData, 7, "the packed data is damaged"},
        {LzhFailure::Truncated, 8, "the archive ends too early"},
        {LzhFailure::WrongChecksum, 9, "the checksum is wrong"},
        {LzhFailure::ForbiddenName, 10, "the name is not allowed"},
        {LzhFailure::LinkInTheWay, 11, "a link stands in the way"},
        {LzhFailure::CannotWrite, 12, "the entry cannot be written"},
        {LzhFailure::DiskFull, 13, "the disk is full"},
        {LzhFailure::OutOfMemory, 14, "there is not enough memory"},
        {static_cast<LzhFailure>(99), 99, "unknown failure"},
    };
    for (const FailureText& row : failures) {
        EXPECT_EQ(static_cast<int>(row.failure), row.number);
        EXPECT_STREQ(Describe(row.failure), row.text);
        EXPECT_STREQ(LzhError(row.failure).what(), row.text);
    }
}

TEST(ExtractionResult, NamesTheEntryAndTheDetailWhereThereAreSuch) {
    ExtractionResult result{LzhFailure::DiskFull, {}, {}};
    EXPECT_EQ(result.Message(), L"the disk is full");
    result.detail = L"-lh9-";
    EXPECT_EQ(result.Message(), L"the disk is full (-lh9-)");
    result.entry = L"dir\\a";
    EXPECT_EQ(result.Message(), L"dir\\a: the disk is full (-lh9-)");
    result.detail.clear();
    EXPECT_EQ(result.Message(), L"dir\\a: the disk is full");
}

} // namespace
} // namespace tamblin::lzh
