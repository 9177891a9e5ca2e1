// SPDX-License-Identifier: MIT
#include "desktop/label_view.hpp"

#include "desktop/readable_colors.hpp"
#include "platform/text.hpp"

#include <QLabel>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace vkr {

namespace {

class CaptionLabel : public QLabel {
  public:
    CaptionLabel(QWidget* parent, const ControlView& view) : QLabel(parent), view_(view) {
        setTextFormat(Qt::PlainText);
    }

  protected:
    // A text that is too wide for its place is drawn narrower rather than cut off.
    void paintEvent(QPaintEvent* /*event*/) override {
        constexpr double narrowest = 0.55; // three letters of a currency in the place of a "$"
        QPainter painter(this);
        if (text().isEmpty() && autoFillBackground()) {
            paintEdge(painter);
            return;
        }
        QRect place = rect();
        const QString shown = wordWrap() ? withBreaks(text(), width() / narrowest) : text();
        if (const int needed = neededWidth(shown); needed > width()) {
            const double part = std::max(narrowest, static_cast<double>(width()) / needed);
            painter.scale(part, 1);
            place.setWidth(static_cast<int>(std::ceil(width() / part)));
        }
        const auto* label = view_.control();
        const bool leads = label != nullptr && text().contains(u'&') &&
                           label->form().mnemonicTarget(*label) != nullptr;
        const int flags = (leads ? Qt::TextShowMnemonic : Qt::TextHideMnemonic) |
                          (wordWrap() ? Qt::TextWordWrap : Qt::TextSingleLine);
        style()->drawItemText(&painter, place, static_cast<int>(alignment()) | flags, palette(),
                              isEnabled(), shown, foregroundRole());
    }

  private:
    // A patch of a colour that may be as good as that of the page.
    void paintEdge(QPainter& painter) const {
        const QPalette& page = view_.host().surface().palette();
        painter.setPen(
            readable(page.color(QPalette::Mid), page.color(QPalette::Window), signContrast));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }

    static constexpr QChar mayBreak = QChar(0x200B); // takes no room

    // The sum of the characters is as good where there is room to spare, and costs a fraction.
    [[nodiscard]] int widthOf(const QString& piece) const {
        constexpr int spare = 2;
        if (const int sum = view_.host().widthOf(piece); sum + spare <= width())
            return sum;
        return fontMetrics().size(Qt::TextShowMnemonic | Qt::TextSingleLine, piece).width();
    }
    // Calls visit(word) for each one.
    template <typename Visit>
    static void forEachWord(const QString& text, Visit&& visit) {
        const auto parts = [](QChar unit) {
            return unit == u' ' || unit == u'\n' || unit == mayBreak;
        };
        for (auto start = text.begin(); start != text.end();) {
            const auto end = std::find_if(start, text.end(), parts);
            if (end != start)
                visit(QStringView(start, end));
            start = end == text.end() ? end : end + 1;
        }
    }
    // A word that is wider than that may be broken anywhere.
    [[nodiscard]] QString withBreaks(const QString& text, double widest) const {
        QString result;
        const QChar* copied = text.constData();
        forEachWord(text, [&](QStringView word) {
            if (widthOf(word.toString()) <= widest)
                return;
            result.append(QStringView(copied, word.begin()));
            QChar before = u'&'; // belongs to what follows
            for (const QChar unit : word) {
                if (before != u'&' && !unit.isLowSurrogate() && !unit.isMark())
                    result += mayBreak;
                result += before = unit;
            }
            copied = word.end();
        });
        return result.append(QStringView(copied, text.constData() + text.size()));
    }
    // Of the widest piece that can't be broken.
    [[nodiscard]] int neededWidth(const QString& text) const {
        if (!wordWrap())
            return widthOf(text);
        int widest = 0;
        forEachWord(text,
                    [&](QStringView word) { widest = std::max(widest, widthOf(word.toString())); });
        return widest;
    }

    const ControlView& view_;
};

} // namespace

LabelView::LabelView(ViewHost& host, Label& label, QWidget& parent) : ControlView(host, label) {
    setWidget(*new Native<CaptionLabel>(*this, &parent, *this));
}

void LabelView::show(Property property) {
    static const Setter setters[] = {
        {Property::caption, &LabelView::showCaption},
        {Property::look, &LabelView::showLook},
    };
    ControlView::show(property);
    ControlView::show(property, setters);
}

void LabelView::showCaption() {
    label().setText(withLineFeeds(toQt(control()->caption())));
}

void LabelView::showLook() {
    const auto& model = static_cast<Label&>(*control());
    const auto across = model.alignment() == Alignment::center  ? Qt::AlignHCenter
                        : model.alignment() == Alignment::right ? Qt::AlignRight
                                                                : Qt::AlignLeft;
    label().setAlignment(across | (model.wordWrap() ? Qt::AlignTop : Qt::AlignVCenter));
    label().setWordWrap(model.wordWrap());
    if (label().font().underline() != model.isLink()) {
        QFont font; // the rest comes from the form
        font.setUnderline(model.isLink());
        label().setFont(font);
    }
    if (model.isLink())
        label().setCursor(Qt::PointingHandCursor);
    else
        label().unsetCursor();
    // Screen readers find the field's key by it.
    label().setBuddy(model.buddy() == nullptr ? nullptr : host().madeWidgetOf(*model.buddy()));
}

QLabel& LabelView::label() const {
    return static_cast<QLabel&>(widget());
}

// Alt and the letter while the focus is elsewhere in the window; within the form the letter comes
// as a key.
bool LabelView::handleOwn(QEvent& event, QWidget& /*source*/, NativeEvent /*native*/) {
    if (event.type() != QEvent::Shortcut)
        return false;
    form().mnemonic(mnemonicOf(control()->caption()));
    form().keyDone();
    return true;
}

} // namespace vkr
