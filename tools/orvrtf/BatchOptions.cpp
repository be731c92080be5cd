#include "BatchOptions.h"

#include "BatchPlan.h"
#include "Messages.h"

#include <QCommandLineParser>
#include <QThread>

#include <climits>

namespace {

// Seconds; a timer can count them in milliseconds.
const int maxTimeout = 1000000;

QString outputDirectoryName()
{
    return QLatin1String("output-dir");
}

QString jobsName()
{
    return QLatin1String("jobs");
}

QString keepGoingName()
{
    return QLatin1String("keep-going");
}

QString timeoutName()
{
    return QLatin1String("timeout");
}

/*!
    Reads the option \a name as a number up to \a max. Not given, it leaves \a number alone; false otherwise.
*/
bool readNumber(const QCommandLineParser& parser, const QString& name, int max, int* number)
{
    if (!parser.isSet(name))
        return true;
    bool isNumber = false;
    *number = parser.value(name).toInt(&isNumber);
    return isNumber && *number >= 0 && *number <= max;
}

bool readJobs(const QCommandLineParser& parser, int* jobs)
{
    if (parser.value(jobsName()) == QLatin1String("auto"))
        *jobs = 0;
    else if (!readNumber(parser, jobsName(), INT_MAX, jobs))
        return false;
    if (*jobs == 0)
        *jobs = QThread::idealThreadCount();
    return true;
}

} // namespace

QList<QCommandLineOption> BatchOptions::all()
{
    return {QCommandLineOption(outputDirectoryName(),
                               Messages::tr("Convert many files, into this directory."),
                               Messages::tr("directory")),
            QCommandLineOption(jobsName(),
                               Messages::tr("Number of files to convert at the same time: 1 by default; 0 or "
                                            "auto is one for each processor."),
                               Messages::tr("number")),
            QCommandLineOption(keepGoingName(),
                               Messages::tr("Convert the other files when one fails; by default no new "
                                            "conversion is started then.")),
            QCommandLineOption(timeoutName(),
                               Messages::tr("Time limit for each of many files, in seconds: 600 by default; "
                                            "0 is no limit."),
                               Messages::tr("seconds"))};
}

bool BatchOptions::isBatch(const QCommandLineParser& parser)
{
    return parser.isSet(outputDirectoryName());
}

QString BatchOptions::stray(const QCommandLineParser& parser)
{
    for (const QString& name : {jobsName(), keepGoingName(), timeoutName()}) {
        if (parser.isSet(name) && !isBatch(parser))
            return name;
    }
    return QString();
}

QString BatchOptions::read(const QCommandLineParser& parser, BatchPlan* plan)
{
    plan->outputDirectory = parser.value(outputDirectoryName());
    plan->keepGoing = parser.isSet(keepGoingName());
    if (plan->outputDirectory.isEmpty())
        return Messages::tr("--output-dir takes a directory");
    if (!readJobs(parser, &plan->jobs))
        return Messages::tr("--jobs takes a number or auto, not \"%1\"").arg(parser.value(jobsName()));
    if (!readNumber(parser, timeoutName(), maxTimeout, &plan->timeout))
        return Messages::tr("--timeout takes a number of seconds, not \"%1\"")
            .arg(parser.value(timeoutName()));
    return QString();
}
