#ifndef ORVRTF_DOCUMENTMODULE_H
#define ORVRTF_DOCUMENTMODULE_H

struct Options;

/*!
    The part of the program that needs documents, and with them Qt's GUI library and all that it brings. It is
   a module of its own, loaded for the commands that need it, so that --version and --help take half the time.
*/
namespace DocumentModule {

/*! Name of the function of the module: it starts the application that the command of the options needs,
   carries the command out and returns an ExitCode. */
constexpr const char* entryName = "orvrtfRunCommand";
typedef int (*Entry)(const Options& options, char* programName);

} // namespace DocumentModule

#endif
