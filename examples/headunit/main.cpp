// A head unit on the desk: phone, contacts, music and settings, over libbtasync for Qt.

#include <QCommandLineParser>
#include <QGuiApplication>

#include "Application.h"

int main(int argc, char** argv) {
  QGuiApplication qt(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("headunit"));

  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral(
      "A head unit: phone, contacts, music and settings, over the Bluetooth service on the session bus."));
  parser.addHelpOption();
  parser.addOptions({
      {QStringLiteral("with-phone"),
       QStringLiteral("Show the phone beside it, and the network: only btservice has them.")},
      {QStringLiteral("light"), QStringLiteral("Light colours instead of dark ones.")},
      {QStringLiteral("pseudo"),
       QStringLiteral("Made-up texts: 40 per cent longer, Arabic letters, right to left.")},
      {QStringLiteral("shots"), QStringLiteral("Draw every screen into PNG files in a directory, and end."),
       QStringLiteral("directory")},
  });
  parser.process(qt);

  Wishes wishes;
  wishes.withPhone = parser.isSet(QStringLiteral("with-phone"));
  wishes.light = parser.isSet(QStringLiteral("light"));
  wishes.pseudo = parser.isSet(QStringLiteral("pseudo"));
  wishes.shots = parser.value(QStringLiteral("shots"));

  Application application(wishes);
  return application.show() ? QGuiApplication::exec() : EXIT_FAILURE;
}
