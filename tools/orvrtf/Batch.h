#ifndef ORVRTF_BATCH_H
#define ORVRTF_BATCH_H

#include "BatchPlan.h"

class QProcessEnvironment;

/*!
    Converts the files of \a plan, each by a process of \a program, this one, in \a environment. Shows how far
    it has come where the standard error is a terminal, prints what goes wrong, and in the end how many files
    went well. Returns an ExitCode; when a signal interrupts it, it ends the conversions that are running, and
    then the program by that signal. Needs a QCoreApplication.
*/
int runBatch(const BatchPlan& plan, const QString& program, const QProcessEnvironment& environment);

#endif
