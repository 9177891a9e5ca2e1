// SPDX-License-Identifier: MIT
#pragma once

namespace vkr {

// What the component itself says, by the numbers of the string table.
namespace text_number {
// Numbers that are laid down.
inline constexpr int addsYear = 404;
inline constexpr int dropsOut = 405;
inline constexpr int noUndo = 406;
inline constexpr int removesYear = 407;
inline constexpr int addsQuarter = 412;
inline constexpr int quarterRejected = 615;
inline constexpr int quarterPutBack = 616;
// The component's own beyond them.
inline constexpr int unitThousands = 620; // behind the caption of a money field
inline constexpr int unitMillions = 621;
inline constexpr int unitBillions = 622;
inline constexpr int unitPercent = 623;  // behind the caption of a rate
inline constexpr int reasonNoDate = 630; // marks at a field whose text is not stored
inline constexpr int reasonTooLarge = 631;
inline constexpr int reasonRefused = 632;
inline constexpr int reasonNoQuarter = 633;
inline constexpr int figuresStayed = 634;
inline constexpr int sumReplaces = 635;
inline constexpr int typedInUnit = 636;  // "%1" the unit that a text was typed in, "%2" that of now
inline constexpr int sumReplaced = 637;  // "%1" the figure that was typed
inline constexpr int copiedInUnit = 638; // "%1" the unit that a figure was copied in, "%2" of now
inline constexpr int otherYears = 639;   // "%1" the year of the newest figures, "%2" that of before
inline constexpr int dataLocked = 669;
inline constexpr int takenInPart = 670; // "%1" the figure stored, "%2" what was left out
inline constexpr int reasonNegative = 671;
inline constexpr int noteFigure = 672; // what a field takes, where a key or a paste was refused
inline constexpr int notePositive = 673;
inline constexpr int notePrice = 674;
inline constexpr int noteYear = 675;
inline constexpr int noteDecimalMark = 676; // "%1" the mark
inline constexpr int noteOneFigure = 677;
inline constexpr int noteFull = 678; // "%1" the characters that a field has room for
// Blocks of cells. Of a count there are two texts: of one, and of "%1".
inline constexpr int pasteCaption = 701; // "%1" the place that the block begins at
inline constexpr int pasteOk = 702;      // of one; the next one of several
inline constexpr int pasteNothing = 704;
inline constexpr int pasteCancel = 705;
inline constexpr int pasteAction = 706; // the same; these name what can be undone
inline constexpr int deleteAction = 708;
inline constexpr int fillAction = 710;
inline constexpr int previousAction = 712;
inline constexpr int noteNoSource = 775;   // "%1" the period that figures were to come from
inline constexpr int noteNoSourceIn = 776; // the same; "%2" the columns
inline constexpr int noteNoMinusIn = 777;  // "%3" the columns
inline constexpr int noteTooManyCells = 778;
inline constexpr int cellsTogether = 779; // "%1" cells of a preview that have one line
inline constexpr int sumTaken = 714;      // the parts of the summary
inline constexpr int sumLeftOut = 716;
inline constexpr int sumDoubtful = 718;
inline constexpr int sumNothing = 720;
inline constexpr int firstPasteHead = 721; // 721 to 726: period, column, text, now, then, remark
inline constexpr int byPeriods = 730;      // the switches
inline constexpr int byNames = 731;
inline constexpr int turned = 732;
inline constexpr int reversed = 733;
inline constexpr int blockUnit = 734;
inline constexpr int unitAsShown = 735;
inline constexpr int emptyCells = 736;
inline constexpr int keepCells = 737; // its entries: keep, empty
inline constexpr int decimalMark = 739;
inline constexpr int pointMark = 740; // its entries: point, comma; more from 745: block_remarks.hpp
inline constexpr int firstReportingPeriod = 640; // 640 to 642, entries of cmbReportingPeriod
} // namespace text_number

} // namespace vkr
