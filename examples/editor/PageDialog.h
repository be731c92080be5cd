#ifndef PAGEDIALOG_H
#define PAGEDIALOG_H

#include "PageSettings.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QFormLayout;
class QLineEdit;

/*! Asks for paper, margins, header and footer. */
class PageDialog : public QDialog {
    Q_OBJECT

public:
    PageDialog(const PageSettings& settings, QWidget* parent);

    PageSettings settings() const;

private:
    /*! A header or footer. */
    struct MarginText {
        QLineEdit* text;
        QComboBox* alignment;
        // The index that was chosen at first, which is not all that an alignment can be.
        int shownAlignment;
    };

    QComboBox* createPapers();
    QDoubleSpinBox* createLength(const char* name, double points);
    MarginText createMarginText(const char* name, const ORVTextPage& text);
    QCheckBox* createCheckBox(const QString& text, bool isChecked);
    void createLayout(QComboBox* papers);
    void showPaper(QComboBox* papers) const;

    PageSettings m_settings;
    QDoubleSpinBox* m_width;
    QDoubleSpinBox* m_height;
    QDoubleSpinBox* m_left;
    QDoubleSpinBox* m_right;
    QDoubleSpinBox* m_top;
    QDoubleSpinBox* m_bottom;
    MarginText m_header;
    MarginText m_footer;
    QCheckBox* m_notOnFirstPage;
    QCheckBox* m_countFirstPage;
};

#endif
