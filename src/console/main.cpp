#include "console/command_line.h"
#include "disk/signals.h"

int main(int argc, char** argv)
{
    disk::cleanUpOnSignals();
    return console::runCommandLine(argc, argv);
}
