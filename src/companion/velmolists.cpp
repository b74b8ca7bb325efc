#include "companion/Commands.h"
#include "platform/CommandLine.h"

#include <iostream>

int main(int argc, char** argv)
{
    return static_cast<int>(
        velmo::companion::RunLists(velmo::platform::Arguments(argc, argv), std::cout, std::cerr));
}
