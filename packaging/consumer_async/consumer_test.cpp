// A test of an application: the service is in memory.

#include <btasync/testing/FakeService.h>

#include <cstdio>

using namespace btasync;

int main() {
  FakeService fake;
  fake.WillAnswer(&Service::GetPowerStatus, BT_POWER_ON);
  bool isOn = false;
  Scope scope;
  fake.GetPowerStatus().Then(
      scope, [&](const Answer<PowerStatus>& answer) { isOn = answer.ValueOr(BT_POWER_OFF) == BT_POWER_ON; });
  fake.Settle();
  std::puts(isOn ? "the service in memory answers" : "unexpected answer");
  return isOn ? 0 : 1;
}
