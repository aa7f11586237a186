// An application that has the service in C++ and in QML. Run without a service, it must say so and end.
// Usage: consumer, with QML_IMPORT_PATH naming where the module BtAsync is

#include <BtService.h>

#include <QCoreApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <cstdio>
#include <memory>

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  QQmlEngine engine;
  QQmlComponent component(&engine);
  component.setData("import BtAsync\nBtService { property int power: Adapter.PowerOn }", QUrl());
  const std::unique_ptr<QObject> made(component.create());
  auto* const bt = qobject_cast<btqt::BtService*>(made.get());
  if (bt == nullptr) {
    std::printf("the module cannot be used: %s\n", qPrintable(component.errorString()));
    return 1;
  }
  QObject::connect(bt, &btqt::BtService::availabilityChanged, bt, [bt] {
    const bool isAsExpected =
        bt->availability() == btqt::BtService::NoBus && bt->property("power").toInt() == 1;
    std::puts(isAsExpected ? "libbtasyncqt is usable; there is no bus here" : "unexpected");
    QCoreApplication::exit(isAsExpected ? 0 : 1);
  });
  return QCoreApplication::exec();
}
