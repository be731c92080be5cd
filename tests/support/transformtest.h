#ifndef TRANSFORMTEST_H
#define TRANSFORMTEST_H

#include "TextTransform.h"
#include "conversionhelpers.h"
#include "testsupport.h"

/*! A test of converting files, each in folders of its own, that has to leave no temporary files. */
class TransformTest : public QObject {
    Q_OBJECT

protected:
    QString path(const Text& name) const { return m_folders->path(name); }
    QString temporary() const { return m_folders->temporary(); }

    TextTransform::Error convert(const QString& source, const QString& target, ORVFormat::Format format,
                                 ORVImportExport::Engine engine, QString* message = nullptr) const
    {
        return TextTransform::transformFileViaTools(source, target, format, engine, message, true);
    }

    TextTransform::Error toRtf(const QString& source, const QString& target, QString* message = nullptr,
                               ORVImportExport::Engine engine = ORVImportExport::PandocEngine) const
    {
        return convert(source, target, ORVFormat::Rtf, engine, message);
    }

protected slots:
    void init()
    {
        m_folders.reset(new conversiontest::Folders);
        TextTransform::setTimeout(120000);
        for (int engine = ORVImportExport::AutomaticEngine; engine <= ORVImportExport::PandocEngine; ++engine)
            TextTransform::setToolPath(ORVImportExport::Engine(engine), QString());
    }

    void cleanup()
    {
        const QStringList leftovers = m_folders->leftovers();
        m_folders.reset();
        QCOMPARE(leftovers, QStringList());
    }

private:
    QScopedPointer<conversiontest::Folders> m_folders;
};

#endif
