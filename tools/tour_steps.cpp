// SPDX-License-Identifier: MIT
#include "tools/tour_steps.hpp"

#include "control/vkr_data_entry.hpp"
#include "host/texts.hpp"

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

#include <cstdio>
#include <stdexcept>

namespace vkr {

namespace {

constexpr auto symbol = "AAPL";

// The tour can't go on: what it needs is not there.
struct Stopped : std::runtime_error {
    using std::runtime_error::runtime_error;
};

QString textOf(const QWidget& widget) {
    if (const auto* edit = qobject_cast<const QLineEdit*>(&widget))
        return edit->text();
    if (const auto* list = qobject_cast<const QComboBox*>(&widget))
        return list->currentText();
    return widget.property("plainText").toString();
}

} // namespace

TourSteps::TourSteps(const QDir& folder, const QString& samples)
    : folder_(folder), samples_(samples) {
    driver_.onEvent = [this](const QString& event) { write(event); };
}

int TourSteps::take(const std::function<void(TourSteps&)>& visit) {
    folder_.mkpath(QStringLiteral("."));
    try {
        visit(*this);
    } catch (const Stopped& stopped) {
        expect(false, QString::fromUtf8(stopped.what()));
    }
    workspace_.reset();

    lines_.append(failures_.isEmpty()
                      ? QStringLiteral("\nEverything was as expected.")
                      : QStringLiteral("\n%1 expectations failed.").arg(failures_.size()));
    QFile transcript(folder_.filePath(QStringLiteral("transcript.txt")));
    const QByteArray text = lines_.join(u'\n').toUtf8() + '\n';
    if (!transcript.open(QIODevice::WriteOnly) || transcript.write(text) != text.size()) {
        std::fprintf(stderr, "%s can't be written: %s\n", qUtf8Printable(transcript.fileName()),
                     qUtf8Printable(transcript.errorString()));
        return 1;
    }
    for (const QString& failure : failures_)
        std::fprintf(stderr, "Not as expected: %s\n", qUtf8Printable(failure));
    return failures_.isEmpty() ? 0 : 1;
}

void TourSteps::start() {
    chapter(QStringLiteral("The list"));
    auto opened = Workspace::create(home_.filePath(QStringLiteral("companies.vkr")), samples_);
    if (!opened.workspace)
        throw Stopped(opened.error.toStdString());
    for (const QString& note : opened.notes)
        write(note);
    workspace_ = std::move(opened.workspace);
    driver_.activate(workspace_->list());
    picture(workspace_->list(), "list.png");
}

void TourSteps::open() {
    press(Qt::Key_F, Qt::ControlModifier);
    driver_.type(QLatin1String(symbol));
    press(Qt::Key_Return);
    enter(workspace_->windows().isEmpty() ? nullptr : workspace_->windows().first());
}

void TourSteps::openNew() {
    press(Qt::Key_N, Qt::ControlModifier);
    enter(workspace_->windows().isEmpty() ? nullptr : workspace_->windows().last());
}

void TourSteps::enter(CompanyWindow* window) {
    window_ = window;
    if (window_ == nullptr)
        throw Stopped("No window opened for the company.");
    driver_.activate(*window_);
    record_ = window_->record();
    before_ = record().clone();
}

void TourSteps::chapter(const QString& title) {
    write(QStringLiteral("\n%1\n").arg(title));
}

void TourSteps::tab(Qt::Key letter, TABObject expected) {
    static const QStringList titles = {
        QStringLiteral("Company Data"), QStringLiteral("Yearly Data"),
        QStringLiteral("Quarterly Data"), QStringLiteral("Other Company Data"),
        QStringLiteral("Options")};
    chapter(titles.at(expected - 1));
    press(letter, Qt::AltModifier);
    expect(window_->entry().component().get_CurrentTab() == expected,
           QStringLiteral("the tab is selected"));
}

void TourSteps::fill(const char* field, const QString& text) {
    const QString old = textOf(control(field));
    driver_.type(text);
    press(Qt::Key_Tab);
    write(QStringLiteral("    %1 on screen: %2 \u2192 %3")
              .arg(QLatin1String(field), old, textOf(control(field))));
}

void TourSteps::click(const char* name) {
    driver_.click(control(name));
    tellDifferences();
}

void TourSteps::whileOpen(const std::function<void()>& open,
                          const std::function<void(QWidget&)>& act) {
    bool acted = false;
    QTimer waiting;
    QObject::connect(&waiting, &QTimer::timeout, [&] {
        QWidget* shown = QApplication::activePopupWidget();
        if (shown == nullptr)
            shown = QApplication::activeModalWidget();
        if (shown == nullptr || !shown->isVisible())
            return;
        waiting.stop();
        acted = true;
        act(*shown);
    });
    waiting.start(0);
    open();
    if (workspace_->windows().contains(window_.data()))
        driver_.activate(*window_); // there is no window manager that does
    expect(acted, QStringLiteral("a menu or a dialog comes up"));
    tellDifferences();
}

void TourSteps::chooseEntry(QWidget& menu, const QString& caption) {
    auto& shown = dynamic_cast<QMenu&>(menu);
    for (auto* entry : shown.actions())
        if (entry->text() == caption) {
            write(QStringLiteral("    entry: ") + caption);
            driver_.click(shown, shown.actionGeometry(entry).center());
            return;
        }
    shown.close();
    expect(false, QStringLiteral("there is an entry ") + caption);
}

QString TourSteps::clickAndAnswer(const char* name, const QString& answer, const char* file) {
    QString question;
    whileOpen([&] { driver_.click(control(name)); },
              [&](QWidget& dialog) {
                  auto& box = dynamic_cast<QMessageBox&>(dialog);
                  question = box.text().replace(u'\n', u' ');
                  if (file != nullptr)
                      picture(*window_, box, file);
                  for (QAbstractButton* button : box.buttons())
                      if (button->text().remove(u'&') == answer)
                          return driver_.click(*button);
                  box.reject();
                  expect(false, QStringLiteral("there is an answer ") + answer);
              });
    write(QStringLiteral("    question: ") + question);
    return question;
}

void TourSteps::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    driver_.press(key, modifiers);
    tellDifferences();
}

void TourSteps::tellDifferences() {
    if (!record_)
        return;
    for (const Difference& difference : differences(*before_, record())) {
        const QString element =
            difference.element ? QStringLiteral("(%1)").arg(*difference.element) : QString();
        write(QStringLiteral("    %1%2: %3 \u2192 %4")
                  .arg(fromUtf8(difference.datum), element, fromUtf8(difference.before),
                       fromUtf8(difference.after)));
    }
    before_ = record().clone();
}

void TourSteps::picture(QWidget& window, const char* file) {
    // The buttons that clear a field fade in and out; a picture does not wait for them.
    for (const auto* edit : window.findChildren<QLineEdit*>())
        for (auto* button : edit->findChildren<QToolButton*>())
            button->setProperty("opacity", edit->text().isEmpty() ? 0.0 : 1.0);
    save(window.grab(), file);
}

void TourSteps::picture(QWidget& window, const QWidget& inFront, const char* file) {
    const QRect behind(window.mapToGlobal(QPoint()), window.size());
    const QRect front(inFront.mapToGlobal(QPoint()), inFront.size());
    const QRect whole = behind.united(front);
    const double ratio = window.devicePixelRatioF();
    QPixmap pixmap(whole.size() * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::white);
    QPainter painter(&pixmap);
    painter.drawPixmap(behind.topLeft() - whole.topLeft(), window.grab());
    const QRect place = front.translated(-whole.topLeft());
    painter.drawPixmap(place.topLeft(), const_cast<QWidget&>(inFront).grab());
    painter.setPen(Qt::darkGray);
    painter.drawRect(place.adjusted(-1, -1, 0, 0));
    painter.end();
    save(pixmap, file);
}

void TourSteps::save(const QPixmap& pixmap, const char* file) {
    const QString path = folder_.filePath(QLatin1String(file));
    expect(pixmap.save(path), QStringLiteral("%1 can be written").arg(path));
    write(QStringLiteral("picture %1").arg(QLatin1String(file)));
}

void TourSteps::expect(bool fulfilled, const QString& what) {
    write(QStringLiteral("    %1: %2")
              .arg(fulfilled ? QStringLiteral("ok") : QStringLiteral("NOT"), what));
    if (!fulfilled)
        failures_.append(what);
}

void TourSteps::expectText(const char* field, const QString& text) {
    const QString is = textOf(control(field));
    expect(is == text, QStringLiteral("%1 shows \"%2\"").arg(QLatin1String(field), text) +
                           (is == text ? QString() : QStringLiteral(", not \"%1\"").arg(is)));
}

void TourSteps::expectNumber(const char* what, double is, double expected) {
    const bool equal = qAbs(is - expected) < 1e-9;
    expect(equal, QStringLiteral("%1 (%2)").arg(QLatin1String(what)).arg(expected, 0, 'g', 12) +
                      (equal ? QString() : QStringLiteral(", not %1").arg(is, 0, 'g', 12)));
}

QWidget& TourSteps::control(const char* name) const {
    auto* found =
        window_ == nullptr ? nullptr : window_->findChild<QWidget*>(QString::fromLatin1(name));
    if (found == nullptr)
        throw Stopped(std::string("There is no ") + name);
    return *found;
}

} // namespace vkr
