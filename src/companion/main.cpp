#include "companion/Commands.h"

#include <iostream>

int main(int argc, char** argv)
{
    return static_cast<int>(velmo::companion::Run(argc, argv, std::cout, std::cerr));
}
