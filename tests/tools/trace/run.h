// Runs commands, and reads what they leave.

#ifndef GORVANET_TESTS_TRACE_RUN_H
#define GORVANET_TESTS_TRACE_RUN_H

#include <string>
#include <vector>

// A directory of its own for each test, gone with it.
struct Scratch {
    std::string path;

    Scratch();
    ~Scratch();
    Scratch(const Scratch &) = delete;
    Scratch &operator=(const Scratch &) = delete;

    std::string file(const std::string &name) const;
    std::string content(const std::string &name) const;
    std::vector<std::string> lines(const std::string &name) const;
};

// The exit status of a command of the shell.
int run(const std::string &command);

#endif
