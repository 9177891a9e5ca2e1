// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <iterator>

namespace vkr {

// What there is to say of a cell of a block.
enum class BlockRemark {
    brackets,
    minusBehind,
    currency, // detail: the sign
    percentSign,
    fraction,
    openBracket,
    percentOfAmount,
    exponent,
    otherReading, // detail: the other figure
    empties,
    looksLikeYear,
    replacesTyped,
    dash,
    notAvailable,
    hidden,
    failed,
    noFigure,
    negative,
    tooLarge,
    outside,
    noSuchPeriod, // detail: as the block has it
    noSuchColumn, // detail: its head in the block
    twice,
    byPosition,    // the periods that the block names were not understood
    fiscalQuarter, // "Q4 2025" where the fiscal year is not the calendar's
    unitUnclear,
    sharesUnit,  // detail: exponent of the unit that the titles tell for shares
    unnamed,     // no head above or beside it
    otherMonths, // detail: how many months the block speaks of
    otherHead,   // detail: the head in the block that goes before its own
    otherDay,    // the block's days are those of periods of another length
};

enum class RemarkKind {
    reading, // how figure or titles were read
    doubt,
    leftOut, // why
};

struct BlockRemarkRow {
    BlockRemark remark;
    RemarkKind kind;
    int text; // number of its string; "%1" its detail
};

inline constexpr BlockRemarkRow blockRemarks[] = {
    {BlockRemark::brackets, RemarkKind::reading, 745},
    {BlockRemark::minusBehind, RemarkKind::reading, 746},
    {BlockRemark::currency, RemarkKind::reading, 747},
    {BlockRemark::percentSign, RemarkKind::reading, 748},
    {BlockRemark::fraction, RemarkKind::reading, 749},
    {BlockRemark::openBracket, RemarkKind::doubt, 750},
    {BlockRemark::percentOfAmount, RemarkKind::doubt, 751},
    {BlockRemark::exponent, RemarkKind::doubt, 752},
    {BlockRemark::otherReading, RemarkKind::doubt, 753},
    {BlockRemark::empties, RemarkKind::doubt, 754},
    {BlockRemark::looksLikeYear, RemarkKind::doubt, 755},
    {BlockRemark::replacesTyped, RemarkKind::doubt, 756},
    {BlockRemark::dash, RemarkKind::leftOut, 757},
    {BlockRemark::notAvailable, RemarkKind::leftOut, 758},
    {BlockRemark::hidden, RemarkKind::leftOut, 759},
    {BlockRemark::failed, RemarkKind::leftOut, 760},
    {BlockRemark::noFigure, RemarkKind::leftOut, 761},
    {BlockRemark::negative, RemarkKind::leftOut, 762},
    {BlockRemark::tooLarge, RemarkKind::leftOut, 763},
    {BlockRemark::outside, RemarkKind::leftOut, 764},
    {BlockRemark::noSuchPeriod, RemarkKind::leftOut, 765},
    {BlockRemark::noSuchColumn, RemarkKind::leftOut, 766},
    {BlockRemark::twice, RemarkKind::leftOut, 767},
    {BlockRemark::byPosition, RemarkKind::doubt, 768},
    {BlockRemark::fiscalQuarter, RemarkKind::doubt, 769},
    {BlockRemark::unitUnclear, RemarkKind::doubt, 770},
    {BlockRemark::sharesUnit, RemarkKind::reading, 771},
    {BlockRemark::unnamed, RemarkKind::leftOut, 772},
    {BlockRemark::otherMonths, RemarkKind::doubt, 773},
    {BlockRemark::otherHead, RemarkKind::leftOut, 774},
    {BlockRemark::otherDay, RemarkKind::doubt, 780},
};

[[nodiscard]] constexpr const BlockRemarkRow& remarkRow(BlockRemark remark) {
    return blockRemarks[static_cast<std::size_t>(remark)];
}
static_assert([] {
    for (std::size_t i = 0; i < std::size(blockRemarks); ++i)
        if (blockRemarks[i].remark != static_cast<BlockRemark>(i))
            return false;
    return std::size(blockRemarks) == static_cast<std::size_t>(BlockRemark::otherDay) + 1;
}());

[[nodiscard]] constexpr bool isDoubt(BlockRemark remark) {
    return remarkRow(remark).kind == RemarkKind::doubt;
}

} // namespace vkr
