#include "console/command_line.h"

int main(int argc, char** argv)
{
    return console::runCommandLine(argc, argv);
}
