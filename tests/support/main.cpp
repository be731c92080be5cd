#include "registry.h"

#include <cstdio>
#include <cstring>
#include <vector>

namespace {

struct Entry {
    const char* name;
    registry::Main main;
};

std::vector<Entry>& entries()
{
    static std::vector<Entry> all;
    return all;
}

registry::Main find(const char* name)
{
    for (const Entry& entry : entries()) {
        if (std::strcmp(entry.name, name) == 0)
            return entry.main;
    }
    return nullptr;
}

// Each in a process of its own, as they need different application objects.
int runAll(const char* program)
{
    int failures = 0;
    for (const Entry& entry : entries())
        failures += QProcess::execute(QString::fromLocal8Bit(program), {QString::fromUtf8(entry.name)});
    return failures;
}

} // namespace

bool registry::add(const char* name, Main main)
{
    entries().push_back({name, main});
    return true;
}

/*!
    tst_ROOM NAME [ARGUMENT…] runs one test class with arguments of QtTest, tst_ROOM runs all, and tst_ROOM
    --list prints their names.
*/
int main(int argc, char** argv)
{
    if (argc < 2)
        return runAll(argv[0]);
    if (std::strcmp(argv[1], "--list") == 0) {
        for (const Entry& entry : entries())
            std::puts(entry.name);
        return 0;
    }
    const registry::Main run = find(argv[1]);
    if (!run) {
        std::fprintf(stderr, "%s: no test \"%s\"\n", argv[0], argv[1]);
        return 1;
    }
    // QtTest takes the name of the program from the first argument.
    argv[1] = argv[0];
    return run(argc - 1, argv + 1);
}
