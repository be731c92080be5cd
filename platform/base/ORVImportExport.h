#ifndef ORVIMPORTEXPORT_H
#define ORVIMPORTEXPORT_H

/*! The programs that convert documents of other formats. */
namespace ORVImportExport {

/*! The program that converts. */
enum Engine {
    /*! Whichever is installed: LibreOffice before AbiWord before pandoc. */
    AutomaticEngine = 0,
    LibreOfficeEngine,
    AbiWordEngine,
    PandocEngine
};

} // namespace ORVImportExport

#endif
