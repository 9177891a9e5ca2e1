// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <fstream>
#include <regex>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

// What the headers declare, read from them, so that an interface description needs no list of its
// own.
namespace vkr::declared {

struct Enumeration {
    std::string name;
    std::vector<std::pair<std::string, int>> members;
};

// A virtual function: "double", "get_CurrentPrice", "" or the type of its only argument.
struct Operation {
    std::string result;
    std::string name;
    std::vector<std::pair<std::string, std::string>> arguments; // type, name
};

inline std::string readSource(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error("can't read " + path.string());
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    return std::regex_replace(text, std::regex(R"(//[^\n]*)"), "");
}

inline std::vector<Enumeration> enumerations(const std::filesystem::path& header) {
    static const std::regex whole(R"(enum (\w+) : std::int32_t \{([^}]*)\})");
    static const std::regex member(R"((\w+) = (-?\d+),)");
    const std::string text = readSource(header);
    std::vector<Enumeration> found;
    for (std::sregex_iterator one(text.begin(), text.end(), whole), end; one != end; ++one) {
        Enumeration& next = found.emplace_back(Enumeration{(*one)[1], {}});
        const std::string body = (*one)[2];
        for (std::sregex_iterator row(body.begin(), body.end(), member); row != end; ++row)
            next.members.emplace_back((*row)[1], std::stoi((*row)[2]));
    }
    return found;
}

// The virtual functions of a class in their order, which is that of their slots.
inline std::vector<Operation> operations(const std::filesystem::path& header,
                                         const std::string& className) {
    static const std::regex function(R"(virtual ([\w:<>&*, ]+?)\s*(\w+)\(([^)]*)\))");
    static const std::regex argument(R"(([\w:<>]+(?: const)?&?)\s*(?:/\*(\w+)\*/|(\w+)))");
    std::string text = readSource(header);
    const std::size_t start = text.find("class " + className + " ");
    if (start == std::string::npos)
        throw std::runtime_error(header.string() + " declares no " + className);
    text = text.substr(start, text.find("\n};", start) - start);
    std::vector<Operation> found;
    for (std::sregex_iterator one(text.begin(), text.end(), function), end; one != end; ++one) {
        Operation& next = found.emplace_back(Operation{(*one)[1], (*one)[2], {}});
        const std::string list =
            std::regex_replace(std::string((*one)[3]), std::regex("const "), "");
        for (std::sregex_iterator row(list.begin(), list.end(), argument); row != end; ++row)
            next.arguments.emplace_back((*row)[1], (*row)[2].matched ? std::string((*row)[2])
                                                                     : std::string((*row)[3]));
    }
    return found;
}

} // namespace vkr::declared
