// SPDX-License-Identifier: MIT
#include "host/help_pages.hpp"

#include "record/enumerations.hpp"

#include <QFile>

#include <algorithm>

// A resource of a library has to be asked for, outside every namespace.
static void addResources() {
    Q_INIT_RESOURCE(help);
}

namespace vkr {

namespace {

HelpBook shippedBook() {
    addResources();
    QFile file(QStringLiteral(":/vkr/host/help_pages.md"));
    const bool isOpen = file.open(QIODevice::ReadOnly);
    HelpBook book = readHelpBook(QString::fromUtf8(file.readAll()));
    Q_ASSERT(isOpen && book.faults.isEmpty());
    return book;
}

QString paragraph(const QString& text) {
    return QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped());
}

QString part(const QString& heading, const QString& text) {
    return text.isEmpty() ? QString()
                          : QStringLiteral("<h3>%1</h3>").arg(heading) + paragraph(text);
}

QString link(const HelpPage& page) {
    return QStringLiteral("<li><a href=\"page:%1\">%2</a></li>")
        .arg(page.number)
        .arg(page.title.toHtmlEscaped());
}

bool isHostPage(const HelpPage& page) {
    return page.number < helpObjectBase;
}
bool isTabPage(const HelpPage& page) {
    return page.number >= helpTabBase + toCompany && page.number <= helpTabBase + toOptions;
}

} // namespace

std::span<const HelpPage> helpPages() {
    static const HelpBook book = shippedBook();
    return book.pages;
}

const HelpPage* helpPage(int number) {
    const auto pages = helpPages();
    const auto found = std::ranges::find(pages, number, &HelpPage::number);
    return found == pages.end() ? nullptr : &*found;
}

QString helpText(const HelpPage& page) {
    QString html = QStringLiteral("<h2>%1</h2>").arg(page.title.toHtmlEscaped());
    for (const QString& text : page.what)
        html += paragraph(text);
    html += part(QStringLiteral("Why one looks at it"), page.why);
    html += part(QStringLiteral("Where to find it"), page.where);
    html += part(page.isTyped ? QStringLiteral("How to type it") : QStringLiteral("How to use it"),
                 page.how);
    html += part(QStringLiteral("Example"), page.example);
    return html;
}

QString helpContents() {
    QString own;
    QString tabs;
    QString objects;
    for (const HelpPage& page : helpPages())
        (isHostPage(page) ? own : isTabPage(page) ? tabs : objects) += link(page);
    return QStringLiteral("<h2>Contents</h2><ul>%1</ul><h3>The five tabs</h3><ul>%2</ul>"
                          "<h3>The fields</h3><ul>%3</ul>")
        .arg(own, tabs, objects);
}

} // namespace vkr
