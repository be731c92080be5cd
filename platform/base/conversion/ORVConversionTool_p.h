#ifndef ORVCONVERSIONTOOL_P_H
#define ORVCONVERSIONTOOL_P_H

#include "ORVFormat.h"
#include "ORVImportExport.h"

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

/*!
    A program that converts documents: its names, the formats it reads and writes, and its arguments.

    It runs in a folder prepared for it. The file names there are ours, so they contain no special characters.
*/
class ORVConversionTool {
public:
    /*! All tools, the preferred one first. */
    static QList<ORVConversionTool> all();

    ORVImportExport::Engine engine() const;
    /*! The name to show to users. */
    QString name() const;
    /*! The names under which it may be installed. */
    QStringList programs() const;
    /*! Whether it converts files that end in "." and \a suffix (in lower case) into \a format. */
    bool converts(const QString& suffix, ORVFormat::Format format) const;

    /*! Creates the files and folders in \a folder that the tool expects; false when that fails. */
    bool prepare(const QString& folder) const;
    /*!
        The arguments with which the tool, run in \a folder, converts the file sourceName(\a suffix) to the
        file outputName(\a format).
    */
    QStringList arguments(const QString& folder, const QString& suffix, ORVFormat::Format format) const;
    /*! Removes files that the tool leaves outside of \a folder when it is killed. */
    void removeLeftovers(const QString& folder) const;

    static QString sourceName(const QString& suffix);
    static QString outputName(ORVFormat::Format format);

private:
    struct Description;
    explicit ORVConversionTool(const Description* description) : m_description(description) { }

    static const Description descriptions[];
    const Description* m_description;
};

#endif
