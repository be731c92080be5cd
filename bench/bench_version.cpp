#include <QCoreApplication>

/*! The least that a program of Qt does: the floor of "orvrtf --version". */
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    return 0;
}
