// An application of the library that does nothing but start it.

#include <bluetooth/MWPBluetooth.h>

#include "bench/programs/StartFigures.h"

int main() {
  if (MWP_CreateBlueTooth() == 0) {
    return 1;
  }
  PrintStartFigures();
  return 0;
}
