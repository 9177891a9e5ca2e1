// SPDX-License-Identifier: MIT
#include "sheet/sheet_notes.hpp"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace vkr {

namespace {

constexpr double columnSpace = 14 * point;

// How texts are set.
struct Setting {
    double type;
    int columns;
};
constexpr Setting settings[] = {
    {valueType, 1}, {valueType, 2}, {valueType, 3}, {6 * point, 3}, {smallestType, 4}};

// Lines beside one another, as many in a column as in the next.
class NoteColumns {
  public:
    enum class Kind { lines, footnotes };

    NoteColumns(Kind kind, const QStringList& texts, double width, const Setting& setting)
        : kind_(kind), setting_(setting),
          indent_(kind == Kind::footnotes ? 2 * setting.type : 0), //
          step_((width + columnSpace) / setting.columns) {
        for (qsizetype i = 0; i < texts.size(); ++i) {
            QString number = QString::number(i + 1);
            for (const QString& line : wrappedLines(texts.at(i), textRoom(), setting.type))
                lines_.append({std::exchange(number, {}), line});
        }
    }

    [[nodiscard]] double height() const {
        return static_cast<double>(linesOfColumn()) * lineHeight(setting_.type);
    }

    // Leaves out lines, or whole footnotes, and says how many.
    void cutTo(double height) {
        const auto most = std::max<qsizetype>(
            setting_.columns * static_cast<qsizetype>(height / lineHeight(setting_.type)), 2);
        if (lines_.size() <= most)
            return;
        qsizetype kept = most - 1;
        while (kind_ == Kind::footnotes && kept > 1 && lines_.at(kept).number.isEmpty())
            --kept;
        const auto left = std::count_if(lines_.begin() + kept, lines_.end(), [&](const Line& line) {
            return kind_ == Kind::lines || !line.number.isEmpty();
        });
        const char* words = kind_ == Kind::lines
                                ? QT_TRANSLATE_NOOP("sheet", "and %1 more lines: see the program")
                                : QT_TRANSLATE_NOOP("sheet", "and %1 more: see the program");
        lines_.resize(kept);
        lines_.append({{}, QCoreApplication::translate("sheet", words).arg(left)});
    }

    void add(SheetFlow& flow) const {
        const double height = lineHeight(setting_.type);
        for (qsizetype row = 0; row < linesOfColumn(); ++row) {
            double left = flow.left();
            for (qsizetype i = row; i < lines_.size(); i += linesOfColumn()) {
                flow.text({left, flow.top(), indent_, height}, numberOf(lines_.at(i)),
                          setting_.type);
                flow.text({left + indent_, flow.top(), textRoom(), height}, lines_.at(i).text,
                          setting_.type);
                left += step_;
            }
            flow.skip(height);
        }
    }

  private:
    struct Line {
        QString number; // of the first one of a text
        QString text;
    };
    [[nodiscard]] double textRoom() const { return step_ - columnSpace - indent_; }
    [[nodiscard]] qsizetype linesOfColumn() const {
        return (lines_.size() + setting_.columns - 1) / setting_.columns;
    }
    [[nodiscard]] QString numberOf(const Line& line) const {
        return kind_ == Kind::footnotes ? line.number : QString();
    }

    Kind kind_;
    Setting setting_;
    double indent_; // of the texts, behind their numbers
    double step_;   // from one column to the next
    QList<Line> lines_;
};

void addTitled(SheetFlow& flow, const char* title, const NoteColumns& columns) {
    if (columns.height() > 0) {
        flow.title(QCoreApplication::translate("sheet", title));
        columns.add(flow);
    }
}

} // namespace

void addNotes(SheetFlow& flow, const QString& notes, const QStringList& footnotes) {
    const QString own = notes.trimmed();
    const QStringList lines = own.isEmpty() ? QStringList() : own.split(u'\n');
    const double room = flow.room() - (lines.isEmpty() ? 0 : SheetFlow::titleHeight()) -
                        (footnotes.isEmpty() ? 0 : SheetFlow::titleHeight());
    const auto set = [&](NoteColumns::Kind kind, const Setting& setting) {
        return NoteColumns(kind, kind == NoteColumns::Kind::lines ? lines : footnotes, flow.width(),
                           setting);
    };
    const auto add = [&](const NoteColumns& above, const NoteColumns& below) {
        addTitled(flow, QT_TRANSLATE_NOOP("sheet", "Notes"), above);
        addTitled(flow, QT_TRANSLATE_NOOP("sheet", "To look at, and where figures come from"),
                  below);
    };
    // Without setting them: no letter of a text is narrower than this on the average.
    const auto letters = static_cast<double>(own.size() + footnotes.join(QString()).size());
    const auto mayFit = [&](double type) {
        constexpr double narrow = 0.25;
        return letters * narrow * type * lineHeight(type) < room * flow.width();
    };
    for (const Setting& setting : settings) {
        if (!mayFit(setting.type))
            continue;
        const NoteColumns below = set(NoteColumns::Kind::footnotes, setting);
        for (int columns = 1; columns <= setting.columns; ++columns) {
            const NoteColumns above = set(NoteColumns::Kind::lines, {setting.type, columns});
            if (above.height() + below.height() <= room)
                return add(above, below);
        }
    }
    const Setting& smallest = *std::rbegin(settings);
    NoteColumns above = set(NoteColumns::Kind::lines, smallest);
    NoteColumns below = set(NoteColumns::Kind::footnotes, smallest);
    below.cutTo(std::max(room / 2, room - above.height()));
    above.cutTo(room - below.height());
    add(above, below);
}

} // namespace vkr
