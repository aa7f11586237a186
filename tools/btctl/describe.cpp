// Prints the description of btctl's command line, as JSON. The build makes from it what is installed beside
// btctl: the completion of shells and the man page.
#include <iostream>

#include "btctl/base/Json.h"
#include "btctl/cli/Description.h"

int main() {
  std::cout << btctl::Describe().dump(1) << std::endl;
  return std::cout ? 0 : 1;
}
