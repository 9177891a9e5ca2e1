// SPDX-License-Identifier: MIT
#pragma once

#include "control/help_frame.hpp"
#include "control/host_line.hpp"
#include "control/pages.hpp"

namespace vkr {

// The pages of the host's help that the form leads to.
class MoreHelp {
  public:
    MoreHelp(Session& session, const HelpFrame& frame, const Pages& pages, HostLine& host)
        : session_(session), frame_(frame), pages_(pages), host_(host) {}

    void aboutPage() { host_.moreHelp(helpTabBase + pages_.shown()); }
    void aboutObject() { // of the help frame
        session_.hideHelpFrame();
        host_.moreHelp(helpObjectBase + frame_.object());
    }

  private:
    Session& session_;
    const HelpFrame& frame_;
    const Pages& pages_;
    HostLine& host_;
};

} // namespace vkr
