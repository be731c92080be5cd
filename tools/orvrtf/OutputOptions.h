#ifndef ORVRTF_OUTPUTOPTIONS_H
#define ORVRTF_OUTPUTOPTIONS_H

#include <QCommandLineOption>
#include <QList>
#include <QString>

class QCommandLineParser;
struct ExportOptions;

/*! The options of convert that go with some formats of output only. */
namespace OutputOptions {

/*! All of them. */
QList<QCommandLineOption> all();

/*! Reads those that \a parser was given, for the format of \a options. Returns an error message, empty on success. */
QString read(const QCommandLineParser& parser, ExportOptions* options);

} // namespace OutputOptions

#endif
