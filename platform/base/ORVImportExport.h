#ifndef ORVIMPORTEXPORT_H
#define ORVIMPORTEXPORT_H

/*! The programs that convert documents of other formats. */
namespace ORVImportExport {

/*! The program that converts. */
enum Engine : int {
    /*! The first that is installed: LibreOffice, AbiWord or pandoc. */
    AutomaticEngine = 0,
    LibreOfficeEngine,
    AbiWordEngine,
    PandocEngine
};

} // namespace ORVImportExport

#endif
