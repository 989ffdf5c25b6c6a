// SPDX-License-Identifier: BSD-3-Clause
// A port of this machine that notices whether anybody calls.
#pragma once

#include <stdexcept>
#include <string>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

/** Calls are completed by the system and wait to be accepted; nobody is ever answered. */
class Listener
{
public:
    Listener() : m_socket(::socket(AF_INET, SOCK_STREAM, 0))
    {
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof(address);
        auto * const plain = reinterpret_cast<sockaddr *>(&address);
        if (m_socket < 0 || ::bind(m_socket, plain, size) != 0 || ::listen(m_socket, 8) != 0 ||
            ::getsockname(m_socket, plain, &size) != 0 || ::fcntl(m_socket, F_SETFL, O_NONBLOCK) != 0) {
            throw std::runtime_error("no port to listen at");
        }
        m_port = ntohs(address.sin_port);
    }
    Listener(Listener const &) = delete;
    Listener & operator=(Listener const &) = delete;
    ~Listener() { ::close(m_socket); }

    /** An address of a file there. */
    std::string url(std::string const & file) const
    {
        return "http://127.0.0.1:" + std::to_string(m_port) + "/" + file;
    }

    /** Whether anybody has called since the last question. */
    bool wasCalled() const
    {
        int const call = ::accept(m_socket, nullptr, nullptr);
        if (call >= 0) {
            ::close(call);
        }
        return call >= 0;
    }

    /** Calls itself, to show that calls are noticed. */
    void call() const
    {
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        address.sin_port = htons(m_port);
        int const caller = ::socket(AF_INET, SOCK_STREAM, 0);
        static_cast<void>(::connect(caller, reinterpret_cast<sockaddr *>(&address), sizeof(address)));
        ::close(caller);
    }

private:
    int m_socket;
    unsigned short m_port = 0;
};
