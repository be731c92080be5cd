#include "FileWriting.h"

#include <QSaveFile>

bool FileWriting::replace(const QString& fileName, const QByteArray& data, QString* message)
{
    QSaveFile file(fileName);
    if (file.open(QIODevice::WriteOnly) && file.write(data) == data.size() && file.commit())
        return true;
    *message = file.errorString();
    return false;
}
