// Runs a fuzzer once on each file of the directories that are its arguments: the corpus as a test, with any compiler.

#include "input.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

Bytes contents(const std::filesystem::path &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

int main(int count, char **arguments)
{
    unsigned files = 0;
    for (int i = 1; i < count; i++)
        for (const auto &entry : std::filesystem::directory_iterator(arguments[i])) {
            Bytes input = contents(entry.path());
            LLVMFuzzerTestOneInput(input.data(), input.size());
            files++;
        }
    printf("%u inputs\n", files);
    return files ? 0 : 1;
}
