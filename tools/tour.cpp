// SPDX-License-Identifier: MIT
#include "tools/tour.hpp"

#include "control/vkr_data_entry.hpp"
#include "host/assistant.hpp"
#include "host/company_window.hpp"
#include "host/help_viewer.hpp"
#include "host/texts.hpp"
#include "host/workspace.hpp"
#include "tools/event_driver.hpp"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>

#include <cstdio>
#include <functional>
#include <memory>
#include <stdexcept>

namespace vkr {

namespace {

constexpr auto symbol = "AAPL";
constexpr auto newName = "Apple Computer Inc.";

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

class Tour {
  public:
    Tour(const QDir& folder, const QString& samples) : folder_(folder), samples_(samples) {
        driver_.onEvent = [this](const QString& event) { write(event); };
    }

    int run();

  private:
    void visit();
    void seeTabs();
    void seeMenu();
    void seeAssistant();
    void seeHelp();
    void seeCalendar();
    void seeLocked();
    void seeOptions();
    void seeSecondPlatform();
    void editCompany();
    void editYears();
    void editQuarters();
    void editOther();
    void chooseThousands();
    void editMoney();
    void pressOk();
    void openAgain();

    void open();
    void addYear();
    void addQuarter();
    void chapter(const QString& title);
    void tab(Qt::Key letter, TABObject expected);
    void fill(const char* field, const QString& text);
    void click(const char* control);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    QString clickAndAnswer(const char* control, const QString& answer, const char* file = nullptr);
    void whileOpen(const std::function<void()>& open, const std::function<void(QWidget&)>& act);
    void chooseEntry(QWidget& menu, const QString& caption);
    void picture(QWidget& window, const QWidget& inFront, const char* file);
    void save(const QPixmap& pixmap, const char* file);
    void tellDifferences();
    void picture(QWidget& window, const char* file);
    void expect(bool fulfilled, const QString& what);
    void expectText(const char* field, const QString& text);
    void expectNumber(const char* what, double is, double expected);
    void write(const QString& line) { lines_.append(line); }
    [[nodiscard]] QWidget& control(const char* name) const;
    [[nodiscard]] const CompanyRecord& record() const { return *record_; }

    QDir folder_;
    QString samples_;
    EventDriver driver_;
    QTemporaryDir home_;
    std::unique_ptr<Workspace> workspace_;
    CompanyWindow* window_ = nullptr;
    std::shared_ptr<const CompanyRecord> record_; // in the window, also after it was closed
    std::shared_ptr<const CompanyRecord> before_; // as it was before the event
    QStringList lines_;
    QStringList failures_;
};

int Tour::run() {
    folder_.mkpath(QStringLiteral("."));
    try {
        visit();
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

void Tour::visit() {
    chapter(QStringLiteral("The list"));
    auto opened = Workspace::create(home_.filePath(QStringLiteral("companies.vkr")), samples_);
    if (!opened.workspace)
        throw Stopped(opened.error.toStdString());
    for (const QString& note : opened.notes)
        write(note);
    workspace_ = std::move(opened.workspace);
    driver_.activate(workspace_->list());
    picture(workspace_->list(), "list.png");
    open();

    seeTabs();
    seeMenu();
    seeAssistant();
    seeHelp();
    seeCalendar();
    seeLocked();
    seeOptions();
    seeSecondPlatform();
    const QString question = clickAndAnswer("cmdCancel", QStringLiteral("Discard"), "discard.png");
    expect(question == QStringLiteral("Discard 3 changes?"),
           QStringLiteral("Cancel asks: the date and both rows"));
    expect(workspace_->windows().isEmpty(), QStringLiteral("Cancel closes the window"));
    driver_.activate(workspace_->list());
    open();

    editCompany();
    editYears();
    editQuarters();
    editOther();
    chooseThousands();
    editMoney();
    pressOk();
    openAgain();
    expectText("txtName", QLatin1String(newName));
    expectText("cmbExchange", QStringLiteral("NYSE"));
    expectText("txtCurrentPrice", QStringLiteral("290.125"));
    expectText("txtTotalDebt", QStringLiteral("90600500.00"));

    addYear();
    addQuarter();
    pressOk();
    openAgain();
    click("cmdCancel");
    expect(workspace_->windows().isEmpty(), QStringLiteral("Cancel closes the window"));
}

// --- what there is to see ----------------------------------------------------------------------

// The sample company as it is.
void Tour::seeTabs() {
    struct Sight {
        Qt::Key letter;
        TABObject page;
        const char* file;
    };
    static constexpr Sight sights[] = {
        {Qt::Key_C, toCompany, "company.png"},     {Qt::Key_Y, toYearly, "yearly.png"},
        {Qt::Key_Q, toQuarterly, "quarterly.png"}, {Qt::Key_O, toOther, "other.png"},
        {Qt::Key_P, toOptions, "options.png"},
    };
    for (const auto& sight : sights) {
        tab(sight.letter, sight.page);
        picture(*window_, sight.file);
    }
    tab(Qt::Key_Q, toQuarterly);
    for (int page = 0; page < 4; ++page)
        press(Qt::Key_PageDown);
    expect(control("txtEPS(34)").visibleRegion().boundingRect().height() ==
               control("txtEPS(34)").height(),
           QStringLiteral("PageDown leads to the oldest quarter"));
    picture(*window_, "quarterly-oldest.png");
    expect(!window_->isWindowModified(), QStringLiteral("looking changes nothing"));
}

void Tour::seeMenu() {
    chapter(QStringLiteral("The right-click menu"));
    tab(Qt::Key_Y, toYearly);
    QStringList entries;
    whileOpen([this] { driver_.click(control("txtSales(9)"), Qt::RightButton); },
              [&](QWidget& menu) {
                  for (const auto* entry : menu.actions())
                      entries.append(entry->isSeparator() ? QStringLiteral("-") : entry->text());
                  picture(*window_, menu, "menu.png");
                  press(Qt::Key_Escape);
              });
    write(QStringLiteral("    menu: ") + entries.join(u' '));
    expect(entries.contains(QStringLiteral("Paste")) &&
               entries.contains(QStringLiteral("Add New Year")) &&
               entries.last() == QStringLiteral("What's This?"),
           QStringLiteral("the menu has commands of the text, of the years, and help"));
}

void Tour::seeAssistant() {
    chapter(QStringLiteral("The assistant"));
    whileOpen([this] { driver_.click(control("txtYNetInc(9)"), Qt::RightButton); },
              [this](QWidget& menu) { chooseEntry(menu, QStringLiteral("Ask the Assistant...")); });
    auto* assistant = window_->findChild<Assistant*>();
    expect(assistant != nullptr && assistant->isVisible() && assistant->object() == doYNetInc,
           QStringLiteral("the assistant tells about the net income"));
    if (assistant == nullptr)
        return;
    picture(*assistant, "assistant.png");
    assistant->close();
    driver_.activate(*window_);
}

void Tour::seeHelp() {
    chapter(QStringLiteral("What's This?"));
    tab(Qt::Key_C, toCompany);
    whileOpen([this] { driver_.click(control("txtDilutedShares"), Qt::RightButton); },
              [this](QWidget& menu) { chooseEntry(menu, QStringLiteral("What's This?")); });
    expect(control("fraDE(0)").isVisible(), QStringLiteral("the help frame is up"));
    picture(*window_, "help.png");
    driver_.click(control("lblMoreHelp"));
    expect(!control("fraDE(0)").isVisible(), QStringLiteral("the link takes it away"));
    expect(workspace_->help().isVisible() &&
               workspace_->help().shownPage() == helpObjectBase + doDilutedShares,
           QStringLiteral("the host shows its page on the diluted shares"));
    picture(workspace_->help(), "help-page.png");
    workspace_->help().close();
    driver_.activate(*window_);
}

void Tour::seeCalendar() {
    chapter(QStringLiteral("The calendar"));
    const Date before = record().get_LastUpdate();
    auto& field = control("txtLastUpdate");
    whileOpen([&] { driver_.doubleClick(field, field.rect().center()); },
              [&](QWidget& calendar) {
                  picture(*window_, calendar, "calendar.png");
                  press(Qt::Key_Right);
                  press(Qt::Key_Return);
              });
    press(Qt::Key_Tab);
    expectNumber("the next day is stored", record().get_LastUpdate().serial, before.serial + 1);
}

void Tour::seeLocked() {
    chapter(QStringLiteral("Locked"));
    const std::string name = record().get_Name();
    click("chkLockInfo");
    click("txtName");
    fill("txtName", QStringLiteral("Something else"));
    expect(record().get_Name() == name, QStringLiteral("a locked company keeps its name"));
    picture(*window_, "locked.png");
    click("chkLockInfo");
}

void Tour::seeOptions() {
    struct Sight {
        const char* option;
        TABObject page;
        Qt::Key letter;
        const char* file;
        const char* field;
        const char* text;
    };
    static constexpr Sight sights[] = {
        {"optDisplay(1)", toYearly, Qt::Key_Y, "fraction.png", "txtHigh(9)", "260 1/8"},
        {"optDisplay(0)", toYearly, Qt::Key_Y, nullptr, "txtHigh(9)", "260.100"},
        {"optCurrency(0)", toYearly, Qt::Key_Y, "thousands.png", "txtSales(9)", "416161000.00"},
        {"optCurrency(2)", toQuarterly, Qt::Key_Q, "billions.png", "txtRevenue(1)", "102.47"},
        {"optCurrency(1)", toYearly, Qt::Key_Y, nullptr, "txtSales(9)", "416161.00"},
        {"optPTI(1)", toYearly, Qt::Key_Y, nullptr, "txtYOption(9)", "15.61"},
        {"optCommEq(1)", toYearly, Qt::Key_Y, "alternatives.png", "txtYOption2(9)", "4.99"},
    };
    for (const auto& sight : sights) {
        tab(Qt::Key_P, toOptions);
        click(sight.option);
        tab(sight.letter, sight.page);
        expectText(sight.field, QLatin1String(sight.text));
        if (sight.file != nullptr)
            picture(*window_, sight.file);
    }
}

// The same company on a component of the second platform.
void Tour::seeSecondPlatform() {
    chapter(QStringLiteral("The second platform"));
    PropertyBag saved;
    saved.write("Platform", std::int32_t{ptZX}, std::int32_t{ptStandard});
    VKRDataEntryWidget second;
    second.restoreProperties(saved);
    second.setCompany(record().clone());
    second.resize(second.sizeHint());
    second.show();
    QCoreApplication::processEvents();
    const auto* debt = second.findChild<QWidget*>(QStringLiteral("txtTotalDebt"));
    expect(debt != nullptr && !debt->isVisible(), QStringLiteral("it asks for no debt"));
    picture(second, "zx.png");
    driver_.activate(*window_);
}

// --- what is done ----------------------------------------------------------------------------

void Tour::open() {
    press(Qt::Key_F, Qt::ControlModifier);
    driver_.type(QLatin1String(symbol));
    press(Qt::Key_Return);
    window_ = workspace_->windows().isEmpty() ? nullptr : workspace_->windows().first();
    if (window_ == nullptr)
        throw Stopped("No window opened for the company.");
    driver_.activate(*window_);
    record_ = window_->record();
    before_ = record().clone();
}

void Tour::editCompany() {
    chapter(QStringLiteral("Company Data"));
    expect(!window_->isWindowModified(), QStringLiteral("a company just opened is unchanged"));
    click("txtName");
    fill("txtName", QLatin1String(newName));
    expect(record().get_Name() == newName, QStringLiteral("the name is stored"));
    expect(window_->isWindowModified(), QStringLiteral("the title shows that there are changes"));

    click("cmbExchange");
    fill("cmbExchange", QStringLiteral("NYSE"));
    expect(record().get_Exchange() == "NYSE", QStringLiteral("the exchange is stored"));

    click("txt52WHigh");
    fill("txt52WHigh", QStringLiteral("288.62"));
    click("txtCurrentPrice");
    fill("txtCurrentPrice", QStringLiteral("290 1/8"));
    expectNumber("the price", record().get_CurrentPrice(), 290.125);
    expectNumber("the 52-week high follows a higher price", record().get_High52W(), 290.125);

    click("txtPriceUpdate");
    fill("txtPriceUpdate", QStringLiteral("1/30/2026"));
    expect(record().get_PriceUpdatedDate() == makeDate(2026, 1, 30),
           QStringLiteral("the date is stored"));
}

void Tour::editYears() {
    tab(Qt::Key_Y, toYearly);
    const double newest = record().get_YDividendSeries().array().number(1);
    click("txtDiv(9)");
    fill("txtDiv(9)", QStringLiteral("1.03"));
    expectNumber("the dividend of the last fiscal year",
                 record().get_YDividendSeries().array().number(1), 1.03);
    expect(newest != 1.03, QStringLiteral("the sample has another dividend"));
    picture(*window_, "yearly-edited.png");
}

void Tour::editQuarters() {
    tab(Qt::Key_Q, toQuarterly);
    const double sum = record().get_Last4QEPS();
    const double newest = record().get_QEPSSeries().array().number(0);
    click("txtEPS(0)");
    fill("txtEPS(0)", QStringLiteral("2.94"));
    expectNumber("the earnings of the last quarter", record().get_QEPSSeries().array().number(0),
                 2.94);
    expectNumber("the trailing four quarters follow", record().get_Last4QEPS(),
                 sum + 2.94 - newest);
    picture(*window_, "quarterly-edited.png");
}

void Tour::editOther() {
    tab(Qt::Key_O, toOther);
    click("txtContactPerson");
    fill("txtContactPerson", QStringLiteral("Investor Relations"));
    expect(record().get_ContactPerson() == "Investor Relations",
           QStringLiteral("the contact is stored"));
    picture(*window_, "other-edited.png");
}

void Tour::chooseThousands() {
    tab(Qt::Key_P, toOptions);
    click("optCurrency(0)");
    expect(record().get_Settings()->get(setting::unit).toLong() == 3,
           QStringLiteral("the unit is thousands"));
    picture(*window_, "options-thousands.png");
}

void Tour::editMoney() {
    tab(Qt::Key_C, toCompany);
    click("txtTotalDebt");
    fill("txtTotalDebt", QStringLiteral("90600500"));
    expectNumber("thousands are kept in millions", record().get_TotalDebt(), 90600.5);
    picture(*window_, "company-edited.png");
}

// A made-up year, typed along its row in thousands and per share.
void Tour::addYear() {
    tab(Qt::Key_Y, toYearly);
    const double newest = record().get_YRevenueSeries().array().number(1);
    clickAndAnswer("cmdAddYear", QStringLiteral("Yes"));
    expect(record().get_LastFY() == 2026, QStringLiteral("the last fiscal year is 2026"));
    expectNumber("the year before kept its revenue",
                 record().get_YRevenueSeries().array().number(2), newest);
    struct Figure {
        const char* cell;
        const char* typed;
        Datum series;
        double stored;
    };
    static constexpr Figure figures[] = {
        {"txtSales(9)", "430000500", Datum::YRevenueSeries, 430000.5},
        {"txtYOption(9)", "137000000", Datum::YPTISeries, 137000},
        {"txtYNetInc(9)", "115000000", Datum::YNetIncSeries, 115000},
        {"txtYOption2(9)", "75000000", Datum::YCommEqSeries, 75000},
        {"txtYEPS(9)", "7.75", Datum::YEPSSeries, 7.75},
        {"txtDiv(9)", "1.05", Datum::YDividendSeries, 1.05},
        {"txtHigh(9)", "290 1/8", Datum::YHighSeries, 290.125},
        {"txtLow(9)", "195.5", Datum::YLowSeries, 195.5},
    };
    for (const Figure& figure : figures) {
        click(figure.cell);
        fill(figure.cell, QLatin1String(figure.typed));
        expectNumber(figure.cell, readSeries(record(), figure.series).array().number(1),
                     figure.stored);
    }
    picture(*window_, "yearly-added.png");
}

void Tour::addQuarter() {
    tab(Qt::Key_Q, toQuarterly);
    const double sum = record().get_Last4QEPS();
    const VariantArray before = record().get_QEPSSeries().array();
    clickAndAnswer("cmdAddQuarter", QStringLiteral("Yes"));
    expect(record().get_LastQDate() == makeDate(2026, 3, 27),
           QStringLiteral("the last quarter is that of March 2026"));
    expectNumber("the quarter before kept its earnings",
                 record().get_QEPSSeries().array().number(1), before.number(0));
    expectNumber("three quarters are not passed off as four", record().get_Last4QEPS(), sum);
    click("txtRevenue(0)");
    fill("txtRevenue(0)", QStringLiteral("98000000"));
    expectNumber("its revenue", record().get_QRevenueSeries().array().number(0), 98000);
    click("txtEPS(0)");
    fill("txtEPS(0)", QStringLiteral("1.71"));
    expectNumber("the trailing four quarters follow", record().get_Last4QEPS(),
                 1.71 + before.number(0) + before.number(1) + before.number(2));
    picture(*window_, "quarterly-added.png");
}

void Tour::pressOk() {
    chapter(QStringLiteral("OK"));
    click("cmdOK");
    expect(workspace_->windows().isEmpty(), QStringLiteral("OK closes the window"));
    window_ = nullptr;
    driver_.activate(workspace_->list());
    press(Qt::Key_F, Qt::ControlModifier);
    press(Qt::Key_Escape);
    const std::vector<CompanySummary> chosen = workspace_->list().chosen();
    expect(chosen.size() == 1 && chosen.front().name == newName,
           QStringLiteral("the list shows the new name"));
    picture(workspace_->list(), "list-edited.png");
}

void Tour::openAgain() {
    chapter(QStringLiteral("Opened again"));
    const auto edited = record_;
    open();
    QStringList lost;
    for (const Difference& difference : differences(*edited, record()))
        lost.append(fromUtf8(difference.datum));
    expect(lost.isEmpty(), lost.isEmpty() ? QStringLiteral("every datum is as it was on OK")
                                          : QStringLiteral("kept: ") + lost.join(u' '));
    expect(!window_->isWindowModified(), QStringLiteral("it is unchanged"));
}

// --- how it is done --------------------------------------------------------------------------

void Tour::chapter(const QString& title) {
    write(QStringLiteral("\n%1\n").arg(title));
}

void Tour::tab(Qt::Key letter, TABObject expected) {
    static const QStringList titles = {
        QStringLiteral("Company Data"), QStringLiteral("Yearly Data"),
        QStringLiteral("Quarterly Data"), QStringLiteral("Other Company Data"),
        QStringLiteral("Options")};
    chapter(titles.at(expected - 1));
    press(letter, Qt::AltModifier);
    expect(window_->entry().component().get_CurrentTab() == expected,
           QStringLiteral("the tab is selected"));
}

void Tour::fill(const char* field, const QString& text) {
    const QString old = textOf(control(field));
    driver_.type(text);
    press(Qt::Key_Tab);
    write(QStringLiteral("    %1 on screen: %2 \u2192 %3")
              .arg(QLatin1String(field), old, textOf(control(field))));
}

void Tour::click(const char* name) {
    driver_.click(control(name));
    tellDifferences();
}

// `open` brings up a menu or a dialog and comes back when that is closed again, which `act` does.
void Tour::whileOpen(const std::function<void()>& open, const std::function<void(QWidget&)>& act) {
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
    if (workspace_->windows().contains(window_))
        driver_.activate(*window_); // there is no window manager that does
    expect(acted, QStringLiteral("a menu or a dialog comes up"));
    tellDifferences();
}

void Tour::chooseEntry(QWidget& menu, const QString& caption) {
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

// A click that brings up a question; its text.
QString Tour::clickAndAnswer(const char* name, const QString& answer, const char* file) {
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

void Tour::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    driver_.press(key, modifiers);
    tellDifferences();
}

void Tour::tellDifferences() {
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

void Tour::picture(QWidget& window, const char* file) {
    // The buttons that clear a field fade in and out; a picture does not wait for them.
    for (const auto* edit : window.findChildren<QLineEdit*>())
        for (auto* button : edit->findChildren<QToolButton*>())
            button->setProperty("opacity", edit->text().isEmpty() ? 0.0 : 1.0);
    save(window.grab(), file);
}

// A window with a menu or a dialog in front of it.
void Tour::picture(QWidget& window, const QWidget& inFront, const char* file) {
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

void Tour::save(const QPixmap& pixmap, const char* file) {
    const QString path = folder_.filePath(QLatin1String(file));
    expect(pixmap.save(path), QStringLiteral("%1 can be written").arg(path));
    write(QStringLiteral("picture %1").arg(QLatin1String(file)));
}

void Tour::expect(bool fulfilled, const QString& what) {
    write(QStringLiteral("    %1: %2")
              .arg(fulfilled ? QStringLiteral("ok") : QStringLiteral("NOT"), what));
    if (!fulfilled)
        failures_.append(what);
}

void Tour::expectText(const char* field, const QString& text) {
    const QString is = textOf(control(field));
    expect(is == text, QStringLiteral("%1 shows \"%2\"").arg(QLatin1String(field), text) +
                           (is == text ? QString() : QStringLiteral(", not \"%1\"").arg(is)));
}

void Tour::expectNumber(const char* what, double is, double expected) {
    const bool equal = qAbs(is - expected) < 1e-9;
    expect(equal, QStringLiteral("%1 (%2)").arg(QLatin1String(what)).arg(expected, 0, 'g', 12) +
                      (equal ? QString() : QStringLiteral(", not %1").arg(is, 0, 'g', 12)));
}

QWidget& Tour::control(const char* name) const {
    auto* found =
        window_ == nullptr ? nullptr : window_->findChild<QWidget*>(QString::fromLatin1(name));
    if (found == nullptr)
        throw Stopped(std::string("There is no ") + name);
    return *found;
}

} // namespace

int runTour(const QString& folder, const QString& samples) {
    return Tour(QDir(folder), samples).run();
}

} // namespace vkr
