// SPDX-License-Identifier: MIT
#pragma once

#include <arpa/inet.h>
#include <array>
#include <atomic>
#include <cstdint>
#include <netinet/in.h>
#include <poll.h>
#include <stdexcept>
#include <string_view>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace vkr::test {

// A line to a server on the loopback address that is cut at a COMMIT: before the server hears of
// it, or before its answer comes back.
class CutLine {
  public:
    enum class At { nothing, commit, answer };

    explicit CutLine(int serverPort) : serverPort_(serverPort), listener_(newSocket()) {
        sockaddr_in address = loopback(0);
        socklen_t size = sizeof address;
        if (bind(listener_, reinterpret_cast<sockaddr*>(&address), size) != 0 ||
            listen(listener_, 8) != 0 ||
            getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size) != 0)
            throw std::runtime_error("no line");
        port_ = ntohs(address.sin_port);
        thread_ = std::thread([this] { carry(); });
    }
    CutLine(const CutLine&) = delete;
    CutLine& operator=(const CutLine&) = delete;
    ~CutLine() {
        isOver_ = true;
        thread_.join();
        close(listener_);
    }

    [[nodiscard]] int port() const { return port_; }
    // The next one only; the line stays dead from then on until it is mended.
    void cut(At at) { cut_ = at; }
    void stayDead(bool dead) { staysDead_ = dead; }
    void mend() { isDead_ = false; }

  private:
    struct Call {
        int client;
        int server;
        bool awaitsAnswer = false;
    };

    static int newSocket() { return socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0); }
    static sockaddr_in loopback(int port) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        address.sin_port = htons(static_cast<std::uint16_t>(port));
        return address;
    }

    void carry() {
        std::vector<Call> calls;
        while (!isOver_) {
            std::vector<pollfd> ends = {{listener_, POLLIN, 0}};
            for (const Call& call : calls) {
                ends.push_back({call.client, POLLIN, 0});
                ends.push_back({call.server, POLLIN, 0});
            }
            static constexpr int milliseconds = 20;
            if (poll(ends.data(), ends.size(), milliseconds) <= 0)
                continue;
            for (std::size_t i = calls.size(); i-- > 0;) {
                bool goesOn = true;
                if (ends[1 + 2 * i].revents != 0)
                    goesOn = fromClient(calls[i]);
                if (goesOn && ends[2 + 2 * i].revents != 0)
                    goesOn = fromServer(calls[i]);
                if (goesOn)
                    continue;
                close(calls[i].client);
                close(calls[i].server);
                calls.erase(calls.begin() + static_cast<std::ptrdiff_t>(i));
            }
            if (ends[0].revents != 0)
                accept(calls);
        }
        for (const Call& call : calls) {
            close(call.client);
            close(call.server);
        }
    }
    void accept(std::vector<Call>& calls) {
        const int client = ::accept(listener_, nullptr, nullptr);
        const int server = newSocket();
        const sockaddr_in address = loopback(serverPort_);
        if (isDead_ ||
            connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
            close(client);
            close(server);
            return;
        }
        calls.push_back({client, server});
    }
    bool fromClient(Call& call) {
        const std::string_view said = hear(call.client);
        static constexpr std::string_view commit("COMMIT", 7); // with the end of the statement
        if (cut_ != At::nothing && said.find(commit) != std::string_view::npos) {
            call.awaitsAnswer = cut_ == At::answer;
            cut_ = At::nothing;
            isDead_ = staysDead_.load();
            if (!call.awaitsAnswer)
                return false;
        }
        return tell(call.server, said);
    }
    bool fromServer(const Call& call) {
        const std::string_view said = hear(call.server);
        return !call.awaitsAnswer && tell(call.client, said);
    }
    std::string_view hear(int end) {
        const ssize_t size = read(end, heard_.data(), heard_.size());
        return {heard_.data(), size > 0 ? static_cast<std::size_t>(size) : 0};
    }
    static bool tell(int end, std::string_view said) {
        return !said.empty() && send(end, said.data(), said.size(), MSG_NOSIGNAL) ==
                                    static_cast<ssize_t>(said.size());
    }

    int serverPort_;
    int listener_;
    int port_ = 0;
    std::array<char, 1 << 16> heard_;
    std::atomic<At> cut_ = At::nothing;
    std::atomic<bool> staysDead_ = false;
    std::atomic<bool> isDead_ = false;
    std::atomic<bool> isOver_ = false;
    std::thread thread_;
};

} // namespace vkr::test
