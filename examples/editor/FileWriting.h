#ifndef FILEWRITING_H
#define FILEWRITING_H

class QByteArray;
class QString;

namespace FileWriting {

/*!
    Makes \a data the content of the file \a fileName. When that fails, \a message says why, and a file that
    was there before is still there.
*/
bool replace(const QString& fileName, const QByteArray& data, QString* message);

} // namespace FileWriting

#endif
