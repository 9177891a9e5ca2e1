// SPDX-License-Identifier: MIT
#pragma once

#include "control/help_frame.hpp"
#include "control/host_line.hpp"
#include "control/pages.hpp"

namespace vkr {

// The pages of the host's help that the form leads to.
class MoreHelp {
  public:
    MoreHelp(EntryContext& context, const HelpFrame& frame, const Pages& pages, HostLine& host)
        : context_(context), frame_(frame), pages_(pages), host_(host) {}

    void aboutPage() { host_.moreHelp(helpTabBase + pages_.shown()); }
    void aboutObject() { // of the help frame
        context_.hideHelpFrame();
        host_.moreHelp(helpObjectBase + frame_.object());
    }

  private:
    EntryContext& context_;
    const HelpFrame& frame_;
    const Pages& pages_;
    HostLine& host_;
};

} // namespace vkr
