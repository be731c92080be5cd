#ifndef ORVRTF_BATCHOPTIONS_H
#define ORVRTF_BATCHOPTIONS_H

#include <QCommandLineOption>
#include <QList>
#include <QString>

class QCommandLineParser;
struct BatchPlan;

/*! The options of convert for many files. */
namespace BatchOptions {

/*! All of them. */
QList<QCommandLineOption> all();

/*! Whether \a parser was given many files to convert. */
bool isBatch(const QCommandLineParser& parser);

/*! The name of an option that has no meaning without many files, but was given; empty when there is none. */
QString stray(const QCommandLineParser& parser);

/*! Reads the options that control the conversions of \a plan. Returns an error message, empty on success. */
QString read(const QCommandLineParser& parser, BatchPlan* plan);

} // namespace BatchOptions

#endif
