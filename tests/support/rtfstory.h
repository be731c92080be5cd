#ifndef RTFSTORY_H
#define RTFSTORY_H

#include "rtfwritinghelpers.h"

#include <QtCore/QUrl>
#include <QtGui/QImage>
#include <QtGui/QTextTable>

/*!
    What the tests of writing a document's body build documents with, and the pieces most bodies consist of.
*/
namespace rtftest {

/*! What the default format is written as: all of an empty paragraph. */
inline QByteArray emptyRun()
{
    return "\\f0\\fs24";
}

/*! What a run of text in the default format is written as. */
inline QByteArray run(const QByteArray& text)
{
    return "{" + emptyRun() + " " + text + "}";
}

/*! What a paragraph of the same format as the one before begins with. */
inline QByteArray newParagraph()
{
    return "\n\\par\\plain ";
}

inline QTextCharFormat bold(QTextCharFormat format = QTextCharFormat())
{
    format.setFontWeight(QFont::Bold);
    return format;
}

/*! \a format with more properties. */
template <typename Format>
Format with(Format format, const Properties& properties)
{
    for (Properties::const_iterator it = properties.begin(); it != properties.end(); ++it)
        format.setProperty(it.key(), it.value());
    return format;
}

inline QTextCharFormat charFormat(const Properties& properties)
{
    return with(QTextCharFormat(), properties);
}

inline QTextBlockFormat blockFormat(const Properties& properties)
{
    return with(QTextBlockFormat(), properties);
}

/*! A document that is written text by text. */
class Story {
public:
    Story() : m_document(newDocument()), m_cursor(m_document.data()) { }

    Story& add(const QString& text, const QTextCharFormat& format = QTextCharFormat())
    {
        m_cursor.insertText(text, format);
        return *this;
    }
    /*! Gives the paragraph a format. */
    Story& format(const QTextBlockFormat& format)
    {
        m_cursor.setBlockFormat(format);
        return *this;
    }
    /*! Begins a paragraph of the same format. */
    Story& paragraph()
    {
        m_cursor.insertBlock(m_cursor.blockFormat(), QTextCharFormat());
        return *this;
    }
    Story& addPicture(const QTextImageFormat& format)
    {
        m_cursor.insertImage(format);
        return *this;
    }
    Story& addResource(const QString& name, const QImage& image)
    {
        m_document->addResource(QTextDocument::ImageResource, QUrl(name), image);
        return *this;
    }

    QTextDocument* document() const { return m_document.data(); }
    QTextCursor& cursor() { return m_cursor; }
    QByteArray body(const WriteSettings& settings = WriteSettings()) const
    {
        return writeBody(*m_document, settings);
    }
    /*! As the application keeps it in a property. */
    QByteArray stored() const { return ORVTextRtf::toRtfCData(m_document.data(), false); }

private:
    QSharedPointer<QTextDocument> m_document;
    QTextCursor m_cursor;
};

/*! A row of two cells, which have the texts "one" and "two" in \a format. */
inline Story cellsWith(const QTextCharFormat& format)
{
    Story story;
    QTextTable* const table = story.cursor().insertTable(1, 2);
    table->cellAt(0, 0).firstCursorPosition().insertText("one", format);
    table->cellAt(0, 1).firstCursorPosition().insertText("two", format);
    return story;
}

} // namespace rtftest

Q_DECLARE_METATYPE(rtftest::Story)

#endif
