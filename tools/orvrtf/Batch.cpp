#include "Batch.h"

#include "Interruption.h"
#include "Messages.h"
#include "Options.h"
#include "ProgressBar.h"
#include "SignalWatch.h"
#include "Streams.h"
#include "Worker.h"

#include <QDir>
#include <QEventLoop>

#include <cstdio>
#include <memory>
#include <vector>

namespace {

/*! How many files ended in which way. */
class Tally {
public:
    explicit Tally(int total) : m_total(total) { }
    void add(Worker::Outcome outcome) { ++m_counts[outcome]; }
    int of(Worker::Outcome outcome) const { return m_counts[outcome]; }
    int tried() const;
    /*! What the user is told at the end. */
    QString summary() const;

private:
    const int m_total;
    int m_counts[Worker::Stopped + 1] = {};
};

int Tally::tried() const
{
    int sum = 0;
    for (const int count : m_counts)
        sum += count;
    return sum;
}

QString Tally::summary() const
{
    const struct {
        int count;
        QString words;
    } rest[] = {{of(Worker::ConvertedWithErrors), Messages::tr("%1 converted with errors")},
                {of(Worker::Failed), Messages::tr("%1 failed")},
                {of(Worker::Stopped), Messages::tr("%1 interrupted")},
                {m_total - tried(), Messages::tr("%1 not tried")}};
    QStringList parts(Messages::tr("%1 converted").arg(of(Worker::Converted)));
    for (const auto& part : rest) {
        if (part.count > 0)
            parts << part.words.arg(part.count);
    }
    return parts.join(QLatin1String(", "));
}

/*! The run of a batch. */
class Batch {
public:
    Batch(const BatchPlan& plan, const QString& program, const QProcessEnvironment& environment);
    ExitCode run();
    /*! The signal that has interrupted the run, 0 for none. */
    int signal() const { return m_signals.signal(); }

private:
    void startNext(Worker& worker);
    void fileFinished(Worker& worker);
    void stop();
    bool isWorking() const;
    bool hasFailed() const;
    void print(const QByteArray& lines);

    const BatchPlan& m_plan;
    SignalWatch m_signals;
    std::vector<std::unique_ptr<Worker>> m_workers;
    ProgressBar m_bar;
    Tally m_tally;
    int m_next = 0;
    QEventLoop m_loop;
};

Batch::Batch(const BatchPlan& plan, const QString& program, const QProcessEnvironment& environment)
    : m_plan(plan), m_signals([this] { stop(); }), m_bar(int(plan.files.size())),
      m_tally(int(plan.files.size()))
{
    const int count = qMin(plan.jobs, int(plan.files.size()));
    for (int i = 0; i < count; ++i)
        m_workers.push_back(std::make_unique<Worker>(program, environment, plan.timeout));
}

ExitCode Batch::run()
{
    m_bar.show(0);
    for (const auto& worker : m_workers)
        startNext(*worker);
    if (isWorking())
        m_loop.exec();
    m_bar.clear();
    printError(m_tally.summary());
    return hasFailed() ? Failure : Success;
}

void Batch::startNext(Worker& worker)
{
    const bool mayBegin = signal() == 0 && (m_plan.keepGoing || !hasFailed());
    if (mayBegin && m_next < m_plan.files.size())
        worker.start(m_plan.files.at(m_next++), [this](Worker& finished) { fileFinished(finished); });
}

void Batch::fileFinished(Worker& worker)
{
    // A signal from the terminal reaches this program and the workers at the same time.
    const bool isInterrupted = signal() != 0 && worker.outcome() == Worker::Failed;
    m_tally.add(isInterrupted ? Worker::Stopped : worker.outcome());
    if (!isInterrupted)
        print(worker.message());
    m_bar.show(m_tally.tried());
    startNext(worker);
    if (!isWorking())
        m_loop.quit();
}

void Batch::stop()
{
    for (const auto& worker : m_workers)
        worker->stop();
}

bool Batch::isWorking() const
{
    for (const auto& worker : m_workers) {
        if (worker->isRunning())
            return true;
    }
    return false;
}

bool Batch::hasFailed() const
{
    return m_tally.of(Worker::Failed) > 0 || m_tally.of(Worker::ConvertedWithErrors) > 0;
}

void Batch::print(const QByteArray& lines)
{
    if (lines.isEmpty())
        return;
    m_bar.clear();
    std::fwrite(lines.constData(), 1, size_t(lines.size()), stderr);
}

} // namespace

int runBatch(const BatchPlan& plan, const QString& program, const QProcessEnvironment& environment)
{
    if (!QDir().mkpath(plan.outputDirectory)) {
        printError(Messages::tr("cannot make the directory %1").arg(plan.outputDirectory));
        return Failure;
    }
    Batch batch(plan, program, environment);
    const ExitCode code = batch.run();
    if (batch.signal() != 0)
        Interruption::endBy(batch.signal());
    return code;
}
