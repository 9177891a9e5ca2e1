// SPDX-License-Identifier: MIT
#pragma once

#include "automation/component_model.hpp"

#include <optional>
#include <string>

namespace vkr::automation {

// Records in a process of their own: the component model starts the tests' program for them, and it
// ends when nobody holds one any more.
namespace record_server {

enum class Kind { scripted, ofTheLibrary }; // a ScriptedObject, or VKR_Company.Company

// Names that a scripted one answers to besides its values: the number of its process; after how
// many calls more that process ends (without a word to anybody); and what it calls with each write
// before it answers.
inline constexpr const char* processId = "ProcessId";
inline constexpr const char* callsLeft = "CallsLeft";
inline constexpr const char* listener = "Listener";

// The program's exit code where it was started as the server.
[[nodiscard]] std::optional<int> served(int argc, char** argv);

// A class of such records, for as long as it lives. It is another one each time: Wine goes on
// asking a process that was killed for the classes that it had.
class RegisteredClass {
  public:
    explicit RegisteredClass(Kind kind);
    ~RegisteredClass();
    RegisteredClass(const RegisteredClass&) = delete;
    RegisteredClass& operator=(const RegisteredClass&) = delete;
    [[nodiscard]] const CLSID& id() const { return id_; }

  private:
    CLSID id_{};
};

} // namespace record_server
} // namespace vkr::automation
