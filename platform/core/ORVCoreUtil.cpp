#include "ORVCoreUtil.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QUuid>

#include <atomic>

namespace {

/*!
    The process id distinguishes processes and the counter calls within one. The random part keeps others on
    the machine from predicting the name.
*/
QString newTempFileName()
{
    static std::atomic<unsigned> counter(0);
    const QString random = QUuid::createUuid().toString().remove(QLatin1Char('{')).remove(QLatin1Char('}'));
    return QString::fromLatin1("orv-%1-%2-%3")
        .arg(QCoreApplication::applicationPid())
        .arg(counter.fetch_add(1))
        .arg(random);
}

} // namespace

QString ORVCoreUtil::GetNewTempFilePath(const QString& suffix)
{
    const QString ending = suffix.isEmpty() ? QString() : QLatin1Char('.') + suffix;
    QString path;
    do {
        path = QDir::temp().filePath(newTempFileName() + ending);
    } while (QFile::exists(path));
    return path;
}
