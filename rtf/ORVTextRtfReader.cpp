#include "ORVTextRtfReader.h"

#include "ORVRtfInterchangeReader_p.h"
#include "ORVTextFormat.h"
#include "ORVTextRtfReader_p.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QTextDocument>

bool ORVTextRtfReader::DefaultFontHinting = false;
bool ORVTextRtfReader::DefaultRemoveInvalidRtfChars = true;
QColor ORVTextRtfReader::DefaultTextColor = Qt::black;

namespace {

/*
    The messages by error code. Those of an extra closing brace and of a missing one name the other brace:
    crossed on purpose, applications match on these texts.
*/
const char* const errorMessages[] = {
    "",
    QT_TRANSLATE_NOOP("ORVTextRtf", "Unmatched '{' in Rich Text file"),
    QT_TRANSLATE_NOOP("ORVTextRtf", "Unmatched '}' in Rich Text file"),
    QT_TRANSLATE_NOOP("ORVTextRtf", "Unmatched '{' in Rich Text file"),
    QT_TRANSLATE_NOOP("ORVTextRtf", "Invalid character found in #SDATA"),
    QT_TRANSLATE_NOOP("ORVTextRtf", "Invalid table encountered in Rich Text file"),
    QT_TRANSLATE_NOOP("ORVTextRtf", "Assertion Error"),
    QT_TRANSLATE_NOOP("ORVTextRtf", "Unexpected end of file"),
    QT_TRANSLATE_NOOP("ORVTextRtf", "Invalid control word encountered"),
    QT_TRANSLATE_NOOP("ORVTextRtf", "Invalid control word parameter encountered"),
    QT_TRANSLATE_NOOP("ORVTextRtf", "Could not open device")};
const int errorMessageCount = int(sizeof(errorMessages) / sizeof(errorMessages[0]));

} // namespace

ORVTextRtfReader::ORVTextRtfReader() : d(new ORVTextRtfReaderPrivate), m_hasDialects(true) { }

ORVTextRtfReader::ORVTextRtfReader(QIODevice* device) : d(new ORVTextRtfReaderPrivate), m_hasDialects(true)
{
    setDevice(device);
}

ORVTextRtfReader::ORVTextRtfReader(ORVTextRtfReaderPrivate* dd) : d(dd), m_hasDialects(false) { }

ORVTextRtfReader::~ORVTextRtfReader()
{
    delete d;
}

void ORVTextRtfReader::setDevice(QIODevice* device)
{
    d->m_input.setDevice(device);
}

QIODevice* ORVTextRtfReader::device() const
{
    return d->m_input.device();
}

void ORVTextRtfReader::setInterchange(bool interchange)
{
    if (!m_hasDialects || interchange == m_interchange)
        return;
    QIODevice* const input = device();
    delete d;
    d = interchange ? new ORVRtfInterchangeReader : new ORVTextRtfReaderPrivate;
    setDevice(input);
    m_interchange = interchange;
}

bool ORVTextRtfReader::interchange() const
{
    return m_interchange;
}

bool ORVTextRtfReader::read(QTextDocument* document)
{
    QTextCharFormat format = ORVTextFormat::defaultCharFormat(document);
    format.setProperty(QTextFormat::FontHintingPreference,
                       int(DefaultFontHinting ? QFont::PreferFullHinting : QFont::PreferNoHinting));
    return read(document, DefaultRemoveInvalidRtfChars, format);
}

bool ORVTextRtfReader::read(QTextDocument* document, bool removeInvalidChars, const QTextCharFormat& format)
{
    if (document && format.isCharFormat()) {
        QTextCharFormat colorless(format);
        colorless.clearProperty(QTextFormat::ForegroundBrush);
        colorless.clearProperty(QTextFormat::BackgroundBrush);
        ORVTextFormat::setDefaultCharFormat(document, colorless);
    }
    return read(document, removeInvalidChars);
}

bool ORVTextRtfReader::read(QTextDocument* document, bool removeInvalidChars)
{
    return d->read(document, removeInvalidChars);
}

int ORVTextRtfReader::error() const
{
    return d->m_error;
}

QString ORVTextRtfReader::errorString() const
{
    const int code = d->m_error;
    if (code <= 0 || code >= errorMessageCount)
        return QString();
    return QCoreApplication::translate("ORVTextRtf", errorMessages[code]);
}

qint64 ORVTextRtfReader::pos() const
{
    return d->m_input.pos();
}

int ORVTextRtfReader::paperWidth() const
{
    return d->m_page.paperWidth;
}

int ORVTextRtfReader::paperHeight() const
{
    return d->m_page.paperHeight;
}

int ORVTextRtfReader::marginLeft() const
{
    return d->m_page.leftMargin;
}

int ORVTextRtfReader::marginRight() const
{
    return d->m_page.rightMargin;
}

int ORVTextRtfReader::marginTop() const
{
    return d->m_page.topMargin;
}

int ORVTextRtfReader::marginBottom() const
{
    return d->m_page.bottomMargin;
}
