// A dbus-daemon of the test's own, in a directory of its own, that ends with the test process.

#ifndef DBUS_DAEMON_H
#define DBUS_DAEMON_H

#include <string>
#include <sys/types.h>

class Daemon {
public:
    // `policy`: rules of its configuration, in place of those that allow everything.
    explicit Daemon(std::string policy = "");
    Daemon(const Daemon &) = delete;
    Daemon &operator=(const Daemon &) = delete;
    ~Daemon();

    void start();
    void stop(); // kills it
    void suspend();
    void resume();
    const std::string &address() const
    {
        return address_;
    }

private:
    std::string directory_;
    std::string address_;
    std::string policy_;
    pid_t process_ = 0;
};

#endif
