#ifndef TESTS_CONTRACT_WITNESS_H
#define TESTS_CONTRACT_WITNESS_H

#include <string>
#include <vector>

namespace bttest {

/// The hand-kept list of the contract, witness.txt: what must stay as it is, whatever the interface
/// description and the headers say.
struct Witness {
  /// A signal, or an event without one, and the listener's method that hears of it.
  struct Event {
    std::string name;
    std::string kind;  ///< of listener: Com, Phone, ...; "nobody"
    int slot = 0;      ///< of the listener's virtual method
  };

  /// What makes the simulated service send a signal.
  struct Cause {
    std::string signal;
    std::string method;     ///< of the interface, or of the simulation's controls
    std::string arguments;  ///< text of the values, in order
  };

  std::vector<std::string> methods;  ///< "SetPower(y bPower) -> (i result)", in the order of declaration
  std::vector<std::string> signals;  ///< "OnScanStatusChanged(y status)", in the order of declaration
  std::vector<std::string>
      subscribed;                     ///< the names of the signals, in the order in which they are subscribed
  std::vector<std::string> uncalled;  ///< the names of the methods that the library does not call
  std::vector<Event> events;
  std::vector<Cause> causes;
};

/// Read once. Throws if there is a line that is none of those that the file explains.
const Witness& TheWitness();

/// What is in one list and not in the other, or in another place, in words; empty if they are the same.
std::string Differences(const std::vector<std::string>& witnessed, const std::vector<std::string>& declared);

}  // namespace bttest

#endif
