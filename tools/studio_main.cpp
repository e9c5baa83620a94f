#include <iostream>

#include "tools/studio_command.h"

int main(int argc, char** argv) {
  return ordelan::studio::run_studio_command(argc, argv, std::cout, std::cerr);
}
