// SPDX-License-Identifier: MIT
#include "store/entry_lists.hpp"

#include "platform/text.hpp"
#include "store/store_text.hpp"

namespace vkr {

namespace {

using Statement = StoreConnection::Statement;

struct ListNames {
    const char* kind;
    const char* column; // of the table of companies
};
// In the order of StoreList.
constexpr ListNames listNames[] = {
    {"exchange", "\"Exchange\""}, {"industry", "\"Industry\""}, {"source", "\"Source\""}};

const ListNames& namesOf(StoreList list) {
    return listNames[static_cast<std::size_t>(list)];
}

const char* kindText(StoreList list) {
    return namesOf(list).kind;
}

std::vector<std::string> textsOf(Statement& rows) {
    std::vector<std::string> texts;
    while (rows.next())
        texts.push_back(rows.text(0));
    return texts;
}

} // namespace

std::vector<std::string> EntryLists::entries(StoreList list) {
    Statement rows(connection_,
                   "SELECT " + connection_.dialect().wholeText("text") +
                       " FROM list_entry WHERE kind = ? ORDER BY position, text",
                   {kindText(list)});
    return textsOf(rows);
}

std::vector<std::string> EntryLists::used(StoreList list) {
    const QString column = namesOf(list).column;
    Statement rows(connection_, "SELECT DISTINCT " + connection_.dialect().wholeText(column) +
                                    " FROM company WHERE " + column + " <> ''");
    return textsOf(rows);
}

void EntryLists::append(StoreList list, const std::string& text) {
    if (trimmed(text).empty())
        return;
    connection_.run("INSERT INTO list_entry (kind, position, text) "
                    "SELECT ?, 1 + coalesce(max(position), -1), ? FROM list_entry WHERE kind = ? "
                    "ON CONFLICT (kind, text) DO NOTHING",
                    {kindText(list), textValue(text), kindText(list)});
}

void EntryLists::remove(StoreList list, const std::string& text) {
    connection_.run("DELETE FROM list_entry WHERE kind = ? AND text = ?",
                    {kindText(list), textValue(text)});
}

void EntryLists::clear(StoreList list) {
    connection_.run("DELETE FROM list_entry WHERE kind = ?", {kindText(list)});
}

} // namespace vkr
