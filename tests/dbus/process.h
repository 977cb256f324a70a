// A process of the test's own. It ends with the test.

#ifndef DBUS_PROCESS_H
#define DBUS_PROCESS_H

#include <functional>
#include <sys/types.h>

class Process {
public:
    // Runs `work` in a child process, whose exit status is its result. Fork before this process uses the bus.
    explicit Process(const std::function<int()> &work);
    Process(const Process &) = delete;
    Process &operator=(const Process &) = delete;
    ~Process();

    void send(int signal) const;
    int wait(); // Result: the exit status, or 128 and the signal that ended it

private:
    pid_t process_;
};

// Wakes those who wait, in this process or another; once it has, it stays so.
class Gate {
public:
    Gate();
    Gate(const Gate &) = delete;
    Gate &operator=(const Gate &) = delete;
    ~Gate();

    void open() const;
    bool wait() const; // Result: false when nobody has opened it in ten seconds

private:
    int ends_[2];
};

#endif
