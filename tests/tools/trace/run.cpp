#include "run.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/wait.h>

Scratch::Scratch()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "trace_test.XXXXXX").string();
    path = mkdtemp(pattern.data());
}

Scratch::~Scratch()
{
    std::filesystem::remove_all(path);
}

std::string Scratch::file(const std::string &name) const
{
    return path + "/" + name;
}

std::string Scratch::content(const std::string &name) const
{
    std::ifstream stream(file(name), std::ios::binary);
    std::ostringstream content;
    content << stream.rdbuf();
    return content.str();
}

std::vector<std::string> Scratch::lines(const std::string &name) const
{
    std::ifstream stream(file(name));
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

int run(const std::string &command)
{
    int status = system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
