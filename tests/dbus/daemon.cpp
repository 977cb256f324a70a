#include "daemon.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr const char *allow_everything = R"(
  <policy context="default">
    <allow user="*"/>
    <allow own="*"/>
    <allow send_type="method_call"/>
    <allow send_type="signal"/>
    <allow send_requested_reply="true" send_type="method_return"/>
    <allow send_requested_reply="true" send_type="error"/>
    <allow receive_type="method_call"/>
    <allow receive_type="method_return"/>
    <allow receive_type="error"/>
    <allow receive_type="signal"/>
    <allow eavesdrop="false"/>
  </policy>
)";

constexpr const char *head = R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <auth>EXTERNAL</auth>
)";

} // namespace

Daemon::Daemon(std::string policy) : policy_(std::move(policy))
{
    char pattern[] = "/tmp/gorvanet-dbus-XXXXXX";
    if (!mkdtemp(pattern))
        throw std::runtime_error("no directory for the bus");
    directory_ = pattern;
    chmod(pattern, 0755); // other users have to reach the socket
    address_ = "unix:path=" + directory_ + "/bus";
    std::ofstream configuration(directory_ + "/bus.conf");
    configuration << head << "  <listen>" << address_ << "</listen>\n"
                  << (policy_.empty() ? allow_everything : policy_) << "</busconfig>\n";
    configuration.close();
    start();
}

Daemon::~Daemon()
{
    stop();
    for (const char *name : {"/bus", "/bus.conf"})
        unlink((directory_ + name).c_str());
    rmdir(directory_.c_str());
}

// Waits until the daemon has told its address: from then on it takes connections.
void Daemon::start()
{
    int ends[2];
    if (pipe(ends))
        throw std::runtime_error("no pipe to the bus");
    process_ = fork();
    if (process_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        std::string configuration = "--config-file=" + directory_ + "/bus.conf";
        std::string answer = "--print-address=" + std::to_string(ends[1]);
        close(ends[0]);
        close(STDERR_FILENO); // it complains about limits that it cannot set
        execlp("dbus-daemon", "dbus-daemon", configuration.c_str(), answer.c_str(), "--nofork", "--nopidfile", nullptr);
        _exit(127);
    }
    close(ends[1]);
    char told[256];
    bool started = read(ends[0], told, sizeof told) > 0;
    close(ends[0]);
    if (!started)
        throw std::runtime_error("the bus does not start");
}

void Daemon::stop()
{
    if (!process_)
        return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
    process_ = 0;
    unlink((directory_ + "/bus").c_str());
}

void Daemon::suspend()
{
    kill(process_, SIGSTOP);
}

void Daemon::resume()
{
    kill(process_, SIGCONT);
}
