#include "registry.h"

#include <cstdio>

namespace {

QMap<QByteArray, registry::Main>& entries()
{
    static QMap<QByteArray, registry::Main> all;
    return all;
}

// Each in a process of its own, as they need different application objects.
int runAll(const char* program)
{
    int failures = 0;
    for (const QByteArray& name : entries().keys())
        failures += QProcess::execute(QString::fromLocal8Bit(program), {QString::fromUtf8(name)});
    return failures;
}

} // namespace

bool registry::add(const char* name, Main main)
{
    entries().insert(name, main);
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
    const QByteArray name = argv[1];
    if (name == "--list") {
        for (const QByteArray& entry : entries().keys())
            std::puts(entry.constData());
        return 0;
    }
    const registry::Main run = entries().value(name);
    if (!run) {
        std::fprintf(stderr, "%s: no test \"%s\"\n", argv[0], name.constData());
        return 1;
    }
    // QtTest takes the name of the program from the first argument.
    argv[1] = argv[0];
    return run(argc - 1, argv + 1);
}
