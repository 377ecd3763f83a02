// The contents of a list box and its selection.
#include "base/selection_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamblin {
namespace {

using testing::ElementsAre;

SelectionList ListOf(std::vector<std::wstring> entries) {
    SelectionList list;
    list.Assign(std::move(entries));
    return list;
}

TEST(SelectionList, StartsEmptyAndUnselected) {
    const SelectionList list;
    EXPECT_TRUE(list.Empty());
    EXPECT_EQ(list.Size(), 0U);
    EXPECT_EQ(list.SelectedCount(), 0U);
    EXPECT_EQ(list.FirstSelected(), std::nullopt);
    EXPECT_EQ(list.LastSelected(), std::nullopt);
}

TEST(SelectionList, HasNoEntryBehindItsLast) {
    SelectionList list = ListOf({L"a", L"b"});
    EXPECT_THROW(list.IsSelected(2), std::out_of_range);
    EXPECT_THROW(list.Select(2), std::out_of_range);
    EXPECT_EQ(list.SelectedCount(), 0U);
}

TEST(SelectionList, AddedEntriesAreUnselectedAndKeepTheirOrder) {
    SelectionList list = ListOf({L"b"});
    list.Select(0);
    list.Add(L"a");
    EXPECT_THAT(list.Entries(), ElementsAre(L"b", L"a"));
    EXPECT_EQ(list[1], L"a");
    EXPECT_TRUE(list.IsSelected(0));
    EXPECT_FALSE(list.IsSelected(1));
}

TEST(SelectionList, CountsAndFindsWhatIsSelected) {
    SelectionList list = ListOf({L"0", L"1", L"2", L"3"});
    list.Select(1);
    list.Select(3);
    EXPECT_EQ(list.SelectedCount(), 2U);
    EXPECT_EQ(list.FirstSelected(), 1U);
    EXPECT_EQ(list.LastSelected(), 3U);
    list.Select(3, false);
    EXPECT_EQ(list.LastSelected(), 1U);
    list.Select(0);
    EXPECT_EQ(list.FirstSelected(), 0U);
}

TEST(SelectionList, RemovingTheSelectedLeavesTheOthersInOrder) {
    SelectionList list = ListOf({L"0", L"1", L"2", L"3", L"4"});
    for (const size_t index : {0U, 2U, 4U})
        list.Select(index);
    list.RemoveSelected();
    EXPECT_THAT(list.Entries(), ElementsAre(L"1", L"3"));
    EXPECT_EQ(list.SelectedCount(), 0U);
    list.RemoveSelected();
    EXPECT_EQ(list.Size(), 2U);
}

TEST(SelectionList, SelectsExactlyTheNamed) {
    SelectionList list = ListOf({L"abc", L"表", L"x", L"y"});
    list.Select(3);
    list.SelectNamed({L"ABC", L"表", L"gone"});
    EXPECT_THAT(list.Selected(), ElementsAre(L"abc", L"表"));
    list.SelectNamed({});
    EXPECT_EQ(list.SelectedCount(), 0U);
}

TEST(SelectionList, OnlyASelectionOfOneMoves) {
    SelectionList list = ListOf({L"0", L"1", L"2"});
    EXPECT_FALSE(list.MoveSelectionOfOneTo(1));
    EXPECT_EQ(list.SelectedCount(), 0U);
    list.Select(0);
    EXPECT_FALSE(list.MoveSelectionOfOneTo(3));
    EXPECT_FALSE(list.MoveSelectionOfOneTo(0));
    EXPECT_TRUE(list.MoveSelectionOfOneTo(2));
    EXPECT_THAT(list.Selected(), ElementsAre(L"2"));
    list.Select(0);
    EXPECT_FALSE(list.MoveSelectionOfOneTo(1));
    EXPECT_THAT(list.Selected(), ElementsAre(L"0", L"2"));
}

TEST(SelectionList, NewContentsAreUnselectedAndDeselectedOnesStay) {
    SelectionList list = ListOf({L"0"});
    list.Select(0);
    list.Assign({L"0", L"1"});
    EXPECT_EQ(list.SelectedCount(), 0U);
    list.Select(0);
    list.Select(1);
    list.DeselectAll();
    EXPECT_EQ(list.SelectedCount(), 0U);
    EXPECT_EQ(list.Size(), 2U);
    list.Clear();
    EXPECT_TRUE(list.Empty());
    EXPECT_EQ(list.FirstSelected(), std::nullopt);
}

} // namespace
} // namespace tamblin
