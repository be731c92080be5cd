#ifndef ORVRTF_BATCHPLAN_H
#define ORVRTF_BATCHPLAN_H

#include <QList>
#include <QString>
#include <QStringList>

/*! One file of a batch. */
struct BatchFile {
    QString input;
    QString output;
    /*! The options of convert that apply to this file. */
    QStringList options;
};

/*! What a batch is to do. */
struct BatchPlan {
    /*! Made when it is missing. */
    QString outputDirectory;
    QList<BatchFile> files;
    /*! How many files are converted at the same time. */
    int jobs = 1;
    /*! Seconds that one file may take, 0 for any time. */
    int timeout = 600;
    /*! Whether a failure keeps no other file from being begun. */
    bool keepGoing = false;
};

/*!
    Where the batch puts what it makes of \a input: the directory, the name without its suffix, and \a suffix.
*/
QString batchOutput(const QString& directory, const QString& input, const QString& suffix);

/*! Says why the \a files cannot all be written without a loss; an empty text if they can. */
QString batchConflict(const QList<BatchFile>& files);

#endif
