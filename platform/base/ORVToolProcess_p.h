#ifndef ORVTOOLPROCESS_P_H
#define ORVTOOLPROCESS_P_H

#include <QtCore/QString>
#include <QtCore/QStringList>

/*!
    Runs a program once, within a time limit, and leaves none of the processes that it started.

    The program runs in a folder that holds its home, its temporary files and what it prints on the standard
    error. It has no display, no standard input, and none of the user's settings.
*/
class ORVToolProcess {
public:
    enum Outcome { Succeeded, NotStarted, Crashed, Failed, TimedOut };

    /*! \a program is an absolute path; \a folder belongs to the caller and exists until after run(). */
    ORVToolProcess(const QString& program, const QString& folder) : m_program(program), m_folder(folder) { }

    /*! Runs the program for at most \a timeout milliseconds, without limit when that is below 1. */
    Outcome run(const QStringList& arguments, int timeout);

    /*! The exit status when the program Failed. */
    int exitCode() const { return m_exitCode; }
    /*! What the system says when it was NotStarted, else what it printed on the standard error: the end. */
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
