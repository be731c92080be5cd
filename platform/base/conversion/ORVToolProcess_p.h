#ifndef ORVTOOLPROCESS_P_H
#define ORVTOOLPROCESS_P_H

#include <QtCore/QString>
#include <QtCore/QStringList>

/*!
    Runs a program once, with a time limit, and leaves no process running that it started.

    The program runs in a folder with its home, its temporary files and its standard error output. It has no
    display, no standard input and none of the user's settings.
*/
class ORVToolProcess {
public:
    enum Outcome { Succeeded, NotStarted, Crashed, Failed, TimedOut };

    /*! \a program is an absolute path. \a folder belongs to the caller and must exist until run() returns. */
    ORVToolProcess(const QString& program, const QString& folder) : m_program(program), m_folder(folder) { }

    /*! Runs the program for at most \a timeout milliseconds, or without limit if that is below 1. */
    Outcome run(const QStringList& arguments, int timeout);

    /*! The exit status after Failed. */
    int exitCode() const { return m_exitCode; }
    /*! The system's message after NotStarted, else the end of the program's standard error output. */
    QString errorOutput() const { return m_errorOutput; }

private:
    QString path(const char* name) const;
    QString printedErrors() const;

    QString m_program;
    QString m_folder;
    int m_exitCode = 0;
    QString m_errorOutput;
};

#endif
