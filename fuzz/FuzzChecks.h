#ifndef FUZZCHECKS_H
#define FUZZCHECKS_H

#include <QtCore/QByteArray>

class FuzzInput;
class ORVTextRtfWriter;
class QTextDocument;

/*! What the fuzzing targets hold against whatever the library makes of an input. */
namespace fuzz {

/*! Ends the process, which is how a target reports a finding, unless \a holds. */
void require(bool holds, const char* what);

/*! Reads \a rtf into \a document, checks what was read, and returns the reader's status. */
int read(const QByteArray& rtf, QTextDocument* document);
/*! The same, as other programs mean it. */
int import(const QByteArray& rtf, QTextDocument* document);

/*! That every length in \a document is a number, and every picture has a sensible size. */
void checkDocument(const QTextDocument& document);

/*! Gives \a writer the settings that \a input chooses. */
void configure(ORVTextRtfWriter& writer, FuzzInput& input);

/*! \a document as \a writer writes it: RTF that must have balanced groups. */
QByteArray written(ORVTextRtfWriter& writer, const QTextDocument& document);

/*! That \a rtf, which the library wrote, is read without an error; what it holds goes into \a document. */
void readBack(const QByteArray& rtf, QTextDocument* document);

} // namespace fuzz

#endif
