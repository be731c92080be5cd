#ifndef REGISTRY_H
#define REGISTRY_H

#include "rows.h"

#include <QtTest/QtTest>

#include <cstdio>

/*! The test classes of a program, each of which is a test of its own to CTest. */
namespace registry {

typedef int (*Main)(int argc, char** argv);

/*! Has the program run \a main for the test \a name. */
bool add(const char* name, Main main);

/*! Runs the test class \a Test beside an application object of the class \a Application. */
template <typename Test, typename Application>
int run(int argc, char** argv)
{
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    Application application(argc, argv);
    Test test;
    const int failures = QTest::qExec(&test, argc, argv);
    // Documents in the last rows need the application.
    rowChecks().clear();
    return failures;
}

/*! Says why a test is skipped, and gives the exit code by which CTest knows. */
inline int skip(const char* reason)
{
    std::printf("skipped: %s\n", reason);
    return 77;
}

/*! As run(), but skips the test where one of \a programs, separated by spaces, is not installed. */
template <typename Test, typename Application>
int runWith(const char* programs, int argc, char** argv)
{
    for (const QString& program : QString::fromUtf8(programs).split(QLatin1Char(' '))) {
        if (QStandardPaths::findExecutable(program).isEmpty())
            return skip(qPrintable(program + QLatin1String(" is not installed")));
    }
    return run<Test, Application>(argc, argv);
}

/*! In place of an application object, where a test is to have none. */
struct NoApplication {
    NoApplication(int&, char**) { }
};

} // namespace registry

/*!
    Registers a test class under a name that is a string. No raw string may be in the class: the moc of Qt 5
    loses the slots behind some of them.
*/
#define ORV_TEST(name, Test, Application) ORV_TEST_MAIN(name, (registry::run<Test, Application>), Test)
/*!
    As ORV_TEST, for a test that is skipped where one of \a programs, separated by spaces, is not installed.
*/
#define ORV_TEST_WITH(programs, name, Test, Application) \
    ORV_TEST_MAIN(name, ([](int argc, char** argv) { \
                      return registry::runWith<Test, Application>(programs, argc, argv); \
                  }), \
                  Test)
/*!
    Registers a function in place of main() under a name, for what a test has to do before it has an
    application.
*/
#define ORV_TEST_MAIN(name, main, Test) static const bool isRegistered##Test = registry::add(name, main);

#endif
