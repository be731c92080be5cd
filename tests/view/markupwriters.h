#ifndef MARKUPWRITERS_H
#define MARKUPWRITERS_H

#include "rtfstory.h"
#include "testsupport.h"

/*! What holds for each writer of markup, the class \a Writer. */
namespace rtftest {

/*! A device that takes only so many bytes. */
class FullDevice : public QIODevice {
public:
    explicit FullDevice(qint64 room) : m_room(room) { open(WriteOnly); }

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char*, qint64 size) override
    {
        if (size > m_room) {
            setErrorString("full"_s);
            return -1;
        }
        m_room -= size;
        return size;
    }

private:
    qint64 m_room;
};

inline QImage square(QRgb color)
{
    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

/*! Adds a red picture, a blue one and the red one again to \a story. */
inline void addThreePictures(Story* story)
{
    const QStringList names = {"red"_s, "blue"_s, "red"_s};
    for (const QString& name : names) {
        QTextImageFormat format;
        format.setName(name);
        story->addResource(name, square(name == "red"_s ? 0xffff0000 : 0xff0000ff)).addPicture(format);
    }
}

/*! A file stands where the folder of the pictures is to be. */
template <typename Writer>
void verifyPictureFolderThatCannotBe()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("media"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    Story story;
    addThreePictures(&story);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    Writer writer(&buffer);
    writer.setPictureFolder(file.fileName(), "media"_s);
    QVERIFY(!writer.write(story.document()));
    QVERIFY(!writer.errorString().isEmpty());
    QVERIFY(writer.pictureFiles().isEmpty());
}

/*! The device fails when the pictures are written: neither they nor the folder stay behind. */
template <typename Writer>
void verifyFailureRemovesPictures()
{
    const QTemporaryDir folder;
    Story story;
    addThreePictures(&story);
    FullDevice device(0);
    Writer writer(&device);
    writer.setPictureFolder(folder.filePath("media"_s), "media"_s);
    QVERIFY(!writer.write(story.document()));
    QCOMPARE(writer.errorString(), "full"_s);
    QVERIFY(writer.pictureFiles().isEmpty());
    QVERIFY(!QFileInfo::exists(folder.filePath("media"_s)));
}

/*! Writing changes nothing, neither in the document nor in the writer. */
template <typename Writer>
void verifyWritingTwice()
{
    Story story;
    story.add("one\ntwo"_s, bold());
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    Writer writer(&buffer);
    QVERIFY(writer.write(story.document()));
    const QByteArray first = buffer.data();
    QVERIFY(!first.isEmpty());
    QVERIFY(writer.write(story.document()));
    QCOMPARE(buffer.data(), first + first);
}

} // namespace rtftest

#endif
