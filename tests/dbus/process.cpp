#include "process.h"

#include <csignal>
#include <cstdio>
#include <poll.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

Process::Process(const std::function<int()> &work)
{
    fflush(nullptr); // what is not written yet would be written twice
    process_ = fork();
    if (process_ < 0)
        throw std::runtime_error("no process");
    if (process_ > 0)
        return;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    int status = work();
    fflush(nullptr);
    _exit(status);
}

Process::~Process()
{
    if (!process_)
        return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
}

void Process::send(int signal) const
{
    kill(process_, signal);
}

int Process::wait()
{
    int status = 0;
    waitpid(process_, &status, 0);
    process_ = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

Gate::Gate()
{
    if (pipe(ends_))
        throw std::runtime_error("no pipe");
}

Gate::~Gate()
{
    close(ends_[0]);
    close(ends_[1]);
}

void Gate::open() const
{
    if (write(ends_[1], "", 1) != 1)
        throw std::runtime_error("the pipe is broken");
}

bool Gate::wait() const
{
    constexpr int patience = 10000;
    pollfd end = {.fd = ends_[0], .events = POLLIN, .revents = 0};
    return poll(&end, 1, patience) == 1;
}
