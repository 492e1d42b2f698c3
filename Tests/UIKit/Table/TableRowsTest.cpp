#include "Platform/UIKit/Table/TableRows.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

using namespace UIKit;
using Position = TableRows::Position;
using Range = TableRows::Range;

TableRows rowsOf(std::initializer_list<std::int64_t> counts) {
    TableRows rows;
    for (const std::int64_t count : counts) {
        rows.addSection(count);
    }
    return rows;
}

TEST(TableRowsTest, WithoutSectionsThereIsNothing) {
    const TableRows rows;
    EXPECT_EQ(rows.count(), 0);
    EXPECT_EQ(rows.height(), 0.0);
    EXPECT_EQ(rows.sectionCount(), 0);
    EXPECT_EQ(rows.rowCount(0), 0);
    EXPECT_EQ(rows.index({0, 0}), std::nullopt);
    EXPECT_EQ(rows.indexAt(0.0), std::nullopt);
    EXPECT_EQ(rows.range(-10.0, 100.0), Range());
}

TEST(TableRowsTest, RowsOfAllSectionsAreCountedThrough) {
    const TableRows rows = rowsOf({2, 0, 3});
    EXPECT_EQ(rows.count(), 5);
    EXPECT_EQ(rows.sectionCount(), 3);
    EXPECT_EQ(rows.rowCount(2), 3);
    EXPECT_EQ(rows.rowCount(3), 0);
    EXPECT_EQ(rows.rowCount(-1), 0);
    const std::vector<Position> all{{0, 0}, {0, 1}, {2, 0}, {2, 1}, {2, 2}};
    for (std::int64_t index = 0; index < 5; ++index) {
        EXPECT_EQ(rows.position(index), all[static_cast<std::size_t>(index)]);
        EXPECT_EQ(rows.index(all[static_cast<std::size_t>(index)]), index);
    }
    EXPECT_EQ(rows.index({0, 2}), std::nullopt);
    EXPECT_EQ(rows.index({1, 0}), std::nullopt);
    EXPECT_EQ(rows.index({2, -1}), std::nullopt);
}

TEST(TableRowsTest, HeightsAreFoundFromPlacesAndBack) {
    const TableRows rows = rowsOf({3});
    EXPECT_EQ(rows.height(), 132.0);
    EXPECT_EQ(TableRows::top(2), 88.0);
    EXPECT_EQ(rows.indexAt(0.0), 0);
    EXPECT_EQ(rows.indexAt(43.9), 0);
    EXPECT_EQ(rows.indexAt(44.0), 1);
    EXPECT_EQ(rows.indexAt(131.9), 2);
    EXPECT_EQ(rows.indexAt(132.0), std::nullopt);
    EXPECT_EQ(rows.indexAt(-0.1), std::nullopt);
    EXPECT_EQ(rows.indexAt(std::numeric_limits<double>::quiet_NaN()), std::nullopt);
}

TEST(TableRowsTest, AStripHoldsTheRowsThatItTouches) {
    const TableRows rows = rowsOf({10});
    EXPECT_EQ(rows.range(0.0, 88.0), (Range{0, 2}));
    EXPECT_EQ(rows.range(0.0, 88.1), (Range{0, 3}));
    EXPECT_EQ(rows.range(43.9, 88.0), (Range{0, 2}));
    EXPECT_EQ(rows.range(44.0, 88.0), (Range{1, 2}));
    EXPECT_EQ(rows.range(-100.0, 10.0), (Range{0, 1}));
    EXPECT_EQ(rows.range(430.0, 1000.0), (Range{9, 10}));
    EXPECT_EQ(rows.range(440.0, 1000.0), Range());
    EXPECT_EQ(rows.range(50.0, 50.0), Range());
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(rows.range(-infinity, infinity), (Range{0, 10}));
    EXPECT_EQ(rows.range(0.0, std::numeric_limits<double>::quiet_NaN()), Range());
}

TEST(TableRowsTest, CountsThatCannotBeAreCut) {
    const std::int64_t most = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(rowsOf({-5, 2}).count(), 2);
    const TableRows rows = rowsOf({most, most, 1});
    EXPECT_EQ(rows.count(), 100'000'000'000'000);
    EXPECT_EQ(rows.rowCount(1), 0);
    EXPECT_EQ(rows.indexAt(rows.height() - 1.0), rows.count() - 1);
}

} // namespace
