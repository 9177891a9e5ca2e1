// SPDX-License-Identifier: MIT
#pragma once

#include "sheet/sheet_content.hpp"
#include "vkr/call.hpp"

#include <string>
#include <vector>

namespace vkr {

// Data sheets into a PDF file, on the paper that the command line names. Needs a QGuiApplication,
// which main() makes where the command line asks for this.
void writePdf(const Call& call, const std::vector<SheetCompany>& companies,
              const std::string& title, const std::string& file);

} // namespace vkr
