#include "support/long_form.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

struct Figures {
    std::vector<std::string> figures;

    ~Figures()
    {
        for (const std::string &figure : figures)
            printf("figure: %s\n", figure.c_str());
    }
};

} // namespace

bool long_form()
{
    const char *wanted = getenv("GORVANET_LONG");
    return wanted && strcmp(wanted, "1") == 0;
}

void report_figure(const std::string &figure)
{
    static Figures all;
    all.figures.push_back(figure);
}
