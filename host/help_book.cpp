// SPDX-License-Identifier: MIT
#include "host/help_book.hpp"

#include "desktop/enumerations.hpp"

#include <QMap>
#include <QRegularExpression>

#include <algorithm>
#include <optional>

namespace vkr {

namespace {

// The number of the page with that key: the name of an object, or of one of the host's own.
std::optional<int> numberOf(const QString& key) {
    static const QMap<QString, int> own = {
        {QStringLiteral("list"), help::list},
        {QStringLiteral("importAndExport"), help::importAndExport},
        {QStringLiteral("saving"), help::saving},
        {QStringLiteral("keyboard"), help::keyboard},
        {QStringLiteral("filings"), help::filings},
        {QStringLiteral("checks"), help::checks},
        {QStringLiteral("split"), help::split},
        {QStringLiteral("blocks"), help::blocks},
    };
    if (own.contains(key))
        return own.value(key);
    bool isObject = false;
    const auto objects = QMetaEnum::fromType<DataEntryObject>();
    const int object = objects.keyToValue(key.toLatin1().constData(), &isObject);
    return isObject ? std::optional(helpObjectBase + object) : std::nullopt;
}

std::optional<Datum> datumNamed(const QString& name) {
    const auto found = std::ranges::find(datumTable(), name.toStdString(), &DatumRow::name);
    return found == datumTable().end() ? std::nullopt : std::optional(found->datum);
}

// A heading, a paragraph or an item of a list, its lines joined.
struct Block {
    int line; // the first one
    QString text;
};

std::vector<Block> blocksOf(const QString& text) {
    std::vector<Block> blocks;
    bool isOpen = false; // the last block goes on
    int number = 0;
    for (const QString& line : text.split(u'\n')) {
        ++number;
        const QString trimmed = line.trimmed();
        const bool isHeading = line.startsWith(u'#');
        if (isOpen && !trimmed.isEmpty() && !isHeading && !line.startsWith(QLatin1String("- ")))
            blocks.back().text += u' ' + trimmed;
        else if (!trimmed.isEmpty())
            blocks.push_back({number, trimmed});
        isOpen = !trimmed.isEmpty() && !isHeading;
    }
    return blocks;
}

// The text with each match of a form replaced by what is made of it.
QString replaced(const QString& text, const QRegularExpression& form, const auto& made) {
    QString result;
    qsizetype from = 0;
    for (auto matches = form.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        result += text.mid(from, match.capturedStart() - from) + made(match);
        from = match.capturedEnd();
    }
    return result + text.mid(from);
}

class Reader {
  public:
    HelpBook read(const QString& text);

  private:
    void heading(const QString& text);
    void paragraph(const QString& text);
    void item(const QString& text);
    void part(const QString& name, const QString& text);
    void findMissingPages();
    // What a text says where shared texts are named and quotes are marked.
    QString said(const QString& text, std::vector<HelpQuote>& quotes);
    void addQuote(const QRegularExpressionMatch& mark, std::vector<HelpQuote>& quotes);
    void fault(const QString& what) {
        book_.faults.append(QStringLiteral("Line %1: %2").arg(line_).arg(what));
    }

    enum class Section { none, shared, page };

    HelpBook book_;
    QMap<QString, QString> shared_;
    Section section_ = Section::none;
    int line_ = 0;
};

HelpBook Reader::read(const QString& text) {
    for (const Block& block : blocksOf(text)) {
        line_ = block.line;
        if (block.text.startsWith(QLatin1String("## ")))
            heading(block.text);
        else if (section_ == Section::none)
            continue;
        else if (block.text.startsWith(QLatin1String("- ")))
            item(block.text);
        else
            paragraph(block.text);
    }
    findMissingPages();
    std::ranges::sort(book_.pages, {}, &HelpPage::number);
    return std::move(book_);
}

void Reader::heading(const QString& text) {
    static const QRegularExpression form(QStringLiteral("^## (.+) \\{#(\\w+)\\}$"));
    const auto match = form.match(text);
    const QString key = match.captured(2);
    section_ = Section::none;
    if (!match.hasMatch())
        return fault(QStringLiteral("a heading is \"## Title {#key}\""));
    if (key == QLatin1String("shared")) {
        section_ = Section::shared;
        return;
    }
    const auto number = numberOf(key);
    if (!number)
        return fault(QStringLiteral("there is no object %1").arg(key));
    if (std::ranges::find(book_.pages, *number, &HelpPage::number) != book_.pages.end())
        return fault(QStringLiteral("%1 has a page already").arg(key));
    section_ = Section::page;
    HelpPage page;
    page.number = *number;
    page.title = match.captured(1);
    book_.pages.push_back(page);
}

void Reader::paragraph(const QString& text) {
    if (section_ == Section::shared)
        return fault(QStringLiteral("a shared text is \"- name: text\""));
    HelpPage& page = book_.pages.back();
    page.what.append(said(text, page.otherQuotes));
}

void Reader::item(const QString& text) {
    static const QRegularExpression form(QStringLiteral("^- ([^:]+): (.+)$"));
    const auto match = form.match(text);
    const QString name = match.captured(1);
    if (!match.hasMatch())
        return fault(QStringLiteral("a part is \"- Name: text\""));
    if (section_ == Section::page)
        return part(name, match.captured(2));
    if (shared_.contains(name))
        return fault(QStringLiteral("the shared text %1 is there already").arg(name));
    shared_.insert(name, match.captured(2));
}

void Reader::part(const QString& name, const QString& text) {
    static const QMap<QString, QString HelpPage::*> parts = {
        {QStringLiteral("Why"), &HelpPage::why},
        {QStringLiteral("Where"), &HelpPage::where},
        {QStringLiteral("Type"), &HelpPage::how},
        {QStringLiteral("Use"), &HelpPage::how},
        {QStringLiteral("Example"), &HelpPage::example},
    };
    const auto member = parts.value(name, nullptr);
    HelpPage& page = book_.pages.back();
    if (member == nullptr)
        return fault(QStringLiteral("a page has no part %1").arg(name));
    if (!(page.*member).isEmpty())
        return fault(QStringLiteral("the page has a part %1 already").arg(name));
    if (member == &HelpPage::how)
        page.isTyped = name == QLatin1String("Type");
    page.*member = said(text, member == &HelpPage::example ? page.quotes : page.otherQuotes);
}

QString Reader::said(const QString& text, std::vector<HelpQuote>& quotes) {
    static const QRegularExpression name(QStringLiteral("\\{([^}]+)\\}"));
    static const QRegularExpression mark(
        QStringLiteral("\\[([^\\]]+)\\]\\((\\S+) (\\S+?)(?: (\\S+))?\\)"));
    const QString whole = replaced(text, name, [this](const auto& match) {
        if (!shared_.contains(match.captured(1)))
            fault(QStringLiteral("there is no shared text %1").arg(match.captured(1)));
        return shared_.value(match.captured(1));
    });
    const QString plain = replaced(whole, mark, [&](const auto& match) {
        addQuote(match, quotes);
        return match.captured(1);
    });
    if (std::ranges::any_of(plain, [](QChar c) { return QStringLiteral("{}[]").contains(c); }))
        fault(QStringLiteral("brackets are for {shared texts} and [figures](SYMBOL Datum)"));
    return plain;
}

void Reader::addQuote(const QRegularExpressionMatch& mark, std::vector<HelpQuote>& quotes) {
    const QString name = mark.captured(3);
    if (const auto datum = datumNamed(name))
        quotes.push_back({mark.captured(2), *datum, mark.captured(1), mark.captured(4)});
    else
        fault(QStringLiteral("there is no datum %1").arg(name));
}

void Reader::findMissingPages() {
    const auto objects = QMetaEnum::fromType<DataEntryObject>();
    for (int i = 0; i < objects.keyCount(); ++i)
        if (std::ranges::find(book_.pages, helpObjectBase + objects.value(i), &HelpPage::number) ==
            book_.pages.end())
            book_.faults.append(
                QStringLiteral("%1 has no page").arg(QLatin1String(objects.key(i))));
}

} // namespace

HelpBook readHelpBook(const QString& text) {
    return Reader().read(text);
}

} // namespace vkr
