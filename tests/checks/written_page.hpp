// SPDX-License-Identifier: MIT
#pragma once

#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>

namespace vkr {

// A text as a cell of a table.
inline std::string cell(std::string_view text) {
    std::string written;
    for (const char character : text)
        if (character == '\r')
            written += "<br>";
        else if (std::string_view("|\\`*_<[]").find(character) != std::string_view::npos)
            (written += '\\') += character;
        else
            written += character;
    return written;
}

// The main function of a program that holds a page of the documents to what the sources say:
//
//     program <page>         1 where the page is not what it should be
//     program --write <page>
inline int checkOrWrite(int argc, char** argv, const std::string& page) {
    const std::string path = argc > 1 ? argv[argc - 1] : "";
    if (argc == 3 && std::string_view(argv[1]) == "--write") {
        std::ofstream file(path, std::ios::binary);
        file << page;
        return file.flush() ? 0 : 1;
    }
    std::ifstream file(path, std::ios::binary);
    const std::string written{std::istreambuf_iterator<char>(file), {}};
    if (written == page)
        return 0;
    std::cerr << path << " is not what the tables say: " << argv[0] << " --write " << path << '\n';
    return 1;
}

} // namespace vkr
