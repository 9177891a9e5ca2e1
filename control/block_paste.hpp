// SPDX-License-Identifier: MIT
#pragma once

#include "binding/block_placing.hpp"
#include "binding/series_grid.hpp"
#include "control/host_line.hpp"
#include "platform/services.hpp"

#include <optional>
#include <string>
#include <vector>

namespace vkr {

// The preview of a block: how it is placed, in words.
class BlockPaste final : public PasteForm {
  public:
    // Nothing of the record is read after this, and nothing asked of the host.
    BlockPaste(const EntryContext& context, const SeriesGrid& grid, SeriesGrid::Cell at,
               CellTexts cells, std::optional<char> decimal, HostLine& host);

    [[nodiscard]] bool accepted() const { return state_ == State::accepted; }
    [[nodiscard]] std::vector<SeriesGrid::Figure> figures() const;

    [[nodiscard]] const std::string& caption() const override { return caption_; }
    [[nodiscard]] const std::vector<std::string>& heads() const override { return heads_; }
    [[nodiscard]] const std::vector<PasteLine>& lines() const override { return lines_; }
    [[nodiscard]] const std::vector<PasteSwitch>& switches() const override { return switches_; }
    void setSwitch(int index, int chosen) override;
    void setUnit(std::int32_t exponent); // of amounts whose block does not tell it
    [[nodiscard]] const std::string& summary() const override { return summary_; }
    [[nodiscard]] const std::string& okCaption() const override { return okCaption_; }
    [[nodiscard]] bool canPaste() const override { return placing_.taken() > 0; }
    [[nodiscard]] const std::string& cancelCaption() const override { return cancelCaption_; }
    void pressOk() override;
    void pressCancel() override { state_ = State::cancelled; }
    [[nodiscard]] bool visible() const override { return state_ == State::onShow; }

  private:
    [[nodiscard]] std::vector<std::optional<BlockGrid::Held>> heldIn(Datum series,
                                                                     HostLine& host) const;
    [[nodiscard]] BlockGrid gridAt(SeriesGrid::Cell at, HostLine& host) const;
    [[nodiscard]] std::string detailText(BlockRemark remark, const std::string& detail) const;
    [[nodiscard]] std::string textOf(const BlockComment& comment) const;
    [[nodiscard]] std::string remarkOf(const PlacedCell& cell) const;
    [[nodiscard]] PasteLine lineOf(const PlacedCell& cell) const;
    // Of cells that go nowhere for the same reason.
    [[nodiscard]] PasteLine lineOf(const std::vector<const PlacedCell*>& alike) const;
    void set(const BlockSwitches& switches);
    void tell();
    void tellLines();
    void tellSwitches();

    const EntryContext& context_;
    const SeriesGrid& grid_;
    BlockPlacing placing_;
    std::string caption_;
    std::vector<std::string> heads_;
    std::vector<PasteLine> lines_;
    std::vector<PasteSwitch> switches_;
    std::string summary_;
    std::string okCaption_;
    std::string cancelCaption_;
    enum class State { onShow, accepted, cancelled };
    State state_ = State::onShow;
};

// A text of a count: `number` of one, the next one of several.
[[nodiscard]] std::string countedText(const EntryContext& context, int number, int count);

} // namespace vkr
