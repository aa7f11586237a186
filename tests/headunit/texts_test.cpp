// A walk over all that the screens show: no text is cut or stands out of what it is in, in both colours and
// in a made-up translation. One style, one font, no shader effects.

#include <QDirIterator>
#include <QFile>
#include <QQuickStyle>
#include <vector>

#include "HeadUnitTest.h"
#include "RunningHeadUnit.h"
#include "VisibleTexts.h"

namespace {

/// Something to look at, and how to come there from the one before.
struct View {
  const char* name;
  std::function<bool()> open;
  /// What goes again by itself after a while: its texts have to be right as long as it is there.
  const char* passing = nullptr;
};

constexpr int kFewestTexts = 5;

}  // namespace

class TextsTest : public HeadUnitTest {
  Q_OBJECT

 private Q_SLOTS:
  void noneIsCut_data() { wishes(); }
  void noneIsCut();
  void noneIsCutInAPairing_data() { wishes(); }
  void noneIsCutInAPairing();
  void noneIsCutInWhatTheSettingsReport_data() { wishes(); }
  void noneIsCutInWhatTheSettingsReport();
  void noneIsCutWithoutPlayerPhoneAndService_data() { wishes(); }
  void noneIsCutWithoutPlayerPhoneAndService();
  void oneStyleAndNoShaderEffects();

 private:
  static void wishes();
  static Wishes fetched();
  /// Opens the views one after the other. What is wrong with the first whose texts are not right, or empty.
  static QString walk(RunningHeadUnit& unit, const std::vector<View>& views);
};

void TextsTest::wishes() {
  QTest::addColumn<bool>("light");
  QTest::addColumn<bool>("pseudo");
  QTest::newRow("dark") << false << false;
  QTest::newRow("light") << true << false;
  QTest::newRow("longer, Arabic letters, right to left") << false << true;
}

Wishes TextsTest::fetched() {
  QFETCH(bool, light);
  QFETCH(bool, pseudo);
  Wishes wishes;
  wishes.withPhone = true;
  wishes.light = light;
  wishes.pseudo = pseudo;
  return wishes;
}

QString TextsTest::walk(RunningHeadUnit& unit, const std::vector<View>& views) {
  QFETCH(bool, pseudo);
  for (const View& view : views) {
    if (!view.open()) {
      return QStringLiteral("%1 does not show").arg(QLatin1String(view.name));
    }
    // What was just filled is laid out in the next turn.
    QStringList faults;
    int seen = 0;
    bool hasGone = false;
    unit.waitFor([&] {
      hasGone = view.passing != nullptr && !unit.shows(QLatin1String(view.passing));
      if (hasGone) {
        return true;
      }
      seen = 0;
      faults = faultsOfVisibleTexts(*unit.window().contentItem(), seen);
      if (pseudo) {
        faults += untranslatedTexts(*unit.window().contentItem());
      }
      return faults.isEmpty() && seen >= kFewestTexts;
    });
    if (hasGone || !faults.isEmpty() || seen < kFewestTexts) {
      return QStringLiteral("%1, %2 texts: %3")
          .arg(QLatin1String(view.name))
          .arg(seen)
          .arg(faults.join(QStringLiteral("; ")));
    }
  }
  return QString();
}

void TextsTest::noneIsCut() {
  RunningHeadUnit unit(deskWorld(), fetched());
  const auto tapped = [&](const char* button, const QString& shown) {
    return unit.tap(QLatin1String(button)) && unit.waitFor([&] { return unit.shows(shown); });
  };
  const auto rings = [&](const char* number) {
    return unit.outside(QStringLiteral("Call"), {kAda, QLatin1String(number)}) &&
           unit.waitFor([&] { return unit.shows(QStringLiteral("caller")); });
  };
  // A call is in the list of calls as soon as it rings.
  const auto accepted = [&](const QString& call) {
    return unit.tap(QStringLiteral("acceptCall")) &&
           unit.waitFor([&] { return !unit.shows(QStringLiteral("caller")) && unit.shows(call); });
  };
  const auto opened = [&](Page page, const QString& shown) {
    unit.open(page);
    return unit.waitFor([&] { return unit.bt().isFresh() && unit.shows(shown); });
  };
  const QString fault = walk(
      unit, {
                {"phone", [&] { return unit.waitForPhone(); }},
                {"a refused number",
                 [&] {
                   return unit.fault(QStringLiteral("FailAnswers"),
                                     {QStringLiteral("DialCall"), 1U, QStringLiteral("org.example.Tired"),
                                      QString()}) &&
                          unit.tap(QStringLiteral("key1")) && tapped("dial", QStringLiteral("notice"));
                 },
                 "notice"},
                {"an incoming call", [&] { return rings("+49170000007"); }},
                {"a call", [&] { return accepted(QStringLiteral("call 1")); }},
                {"a second call comes", [&] { return rings("+49170000008"); }},
                {"two calls", [&] { return accepted(QStringLiteral("call 2")); }},
                {"a conference", [&] { return tapped("merge", QStringLiteral("call 2/conference")); }},
                {"the sound on the phone",
                 [&] {
                   return unit.tap(QStringLiteral("privacy")) &&
                          unit.waitFor([&] { return unit.bt().calls()->isPrivate(); });
                 }},
                {"contacts", [&] { return opened(CONTACTS, QStringLiteral("entries")); }},
                {"which number is to be called",
                 [&] { return tapped("callContact", QStringLiteral("callNobody")); }},
                {"favourites",
                 [&] {
                   return unit.tap(QStringLiteral("callNobody")) && tapped("list1", QStringLiteral("nobody"));
                 }},
                {"the last calls", [&] { return tapped("list2", QStringLiteral("callBack")); }},
                {"nobody is found",
                 [&] {
                   return unit.tap(QStringLiteral("list0")) && unit.tap(QStringLiteral("search")) &&
                          (QTest::keyClick(&unit.window(), '~'),
                           unit.waitFor([&] { return unit.shows(QStringLiteral("nobody")); }));
                 }},
                {"music", [&] { return opened(MUSIC, QStringLiteral("repeat")); }},
                {"settings", [&] { return opened(SETTINGS, QStringLiteral("paired/remove")); }},
                {"a search", [&] { return tapped("scan", QStringLiteral("found/pair")); }},
            });
  QVERIFY2(fault.isEmpty(), qPrintable(fault));
}

void TextsTest::noneIsCutInAPairing() {
  RunningHeadUnit unit(deskWorld(), fetched());
  QVERIFY(unit.waitForPhone());
  unit.open(SETTINGS);
  QVERIFY(unit.tap(QStringLiteral("discoverable")));
  QVERIFY(unit.waitFor([&] { return unit.bt().adapter()->isDiscoverable(); }));
  std::vector<View> views;
  for (const char* const kind :
       {"confirmation", "passkey-entry", "passkey-display", "pin-code", "just-works"}) {
    const QString address = QStringLiteral("00:1A:7D:DA:72:%1").arg(views.size(), 2, 10, QLatin1Char('0'));
    views.push_back({kind, [&unit, kind, address] {
                       const QString device =
                           QStringLiteral(R"({"address": "%1", "name": "Another phone", "profiles": ["hfp"],)"
                                          R"( "pairing": "%2"})")
                               .arg(address, QLatin1String(kind));
                       return unit.outside(QStringLiteral("AddDevice"), {device}) &&
                              unit.outside(QStringLiteral("RequestPairing"), {address}) &&
                              unit.waitFor([&] { return unit.shows(QStringLiteral("asking")); });
                     }});
    views.push_back({"settings", [&unit] {
                       return unit.tap(QStringLiteral("rejectPairing")) &&
                              unit.waitFor([&] { return !unit.shows(QStringLiteral("asking")); });
                     }});
  }
  // One that was begun here, and comes to nothing.
  views.push_back({"not paired",
                   [&unit] {
                     return unit.tap(QStringLiteral("scan")) &&
                            unit.tap(QStringLiteral("found/device %1/pair").arg(kCarla)) &&
                            unit.tap(QStringLiteral("rejectPairing")) &&
                            unit.waitFor([&] { return unit.shows(QStringLiteral("notice")); });
                   },
                   "notice"});
  const QString fault = walk(unit, views);
  QVERIFY2(fault.isEmpty(), qPrintable(fault));
}

void TextsTest::noneIsCutInWhatTheSettingsReport() {
  RunningHeadUnit unit(deskWorld(), fetched());
  QVERIFY(unit.waitForPhone());
  unit.open(SETTINGS);
  const auto ben = [&] {
    btqt::RowsModel* const paired = unit.bt().devices()->paired();
    return paired->get(paired->rowOf(kBen));
  };
  const QString fault = walk(
      unit, {
                {"the power fails",
                 [&] {
                   return unit.fault(QStringLiteral("FailAnswers"),
                                     {QStringLiteral("SetPower"), 1U, QStringLiteral("org.example.Tired"),
                                      QString()}) &&
                          unit.tap(QStringLiteral("power")) &&
                          unit.waitFor([&] { return unit.shows(QStringLiteral("notice")); });
                 },
                 "notice"},
                {"a phone that cannot be connected",
                 [&] {
                   return unit.tap(QStringLiteral("paired/device %1/connect").arg(kBen)) && unit.waitFor([&] {
                     return ben().value(QStringLiteral("hfp")).toInt() == btqt::Devices::Failed;
                   });
                 }},
            });
  QVERIFY2(fault.isEmpty(), qPrintable(fault));
}

void TextsTest::noneIsCutWithoutPlayerPhoneAndService() {
  RunningHeadUnit unit(QStringLiteral(HEADUNIT_SLOW_DOWNLOAD_WORLD), fetched());
  const QString fault = walk(
      unit, {
                {"a download",
                 [&] {
                   unit.open(CONTACTS);
                   return unit.waitFor([&] { return unit.shows(QStringLiteral("progress")); });
                 }},
                {"no player",
                 [&] {
                   unit.open(MUSIC);
                   return unit.waitFor([&] { return unit.shows(QStringLiteral("noPlayer")); });
                 }},
                {"roaming, without a network",
                 [&] {
                   return unit.outside(QStringLiteral("SetRoaming"), {kAda, true}) &&
                          unit.outside(QStringLiteral("SetOperator"), {kAda, QString()}) && unit.waitFor([&] {
                            return unit.shows(QStringLiteral("roaming")) &&
                                   !unit.bt().network()->isAvailable();
                          });
                 }},
                {"no phone",
                 [&] {
                   unit.open(PHONE);
                   return unit.outside(QStringLiteral("SetInRange"), {kAda, false}) &&
                          unit.waitFor([&] { return unit.bt().network()->phone().isEmpty(); });
                 }},
                {"no service",
                 [&] {
                   unit.killService();
                   return unit.waitFor([&] { return unit.shows(QStringLiteral("availability")); });
                 }},
            });
  QVERIFY2(fault.isEmpty(), qPrintable(fault));
}

void TextsTest::oneStyleAndNoShaderEffects() {
  const RunningHeadUnit unit;
  QCOMPARE(QQuickStyle::name(), QStringLiteral("Basic"));
  int files = 0;
  QDirIterator sources(QStringLiteral(":/qt/qml/HeadUnit"), {QStringLiteral("*.qml")}, QDir::Files,
                       QDirIterator::Subdirectories);
  while (sources.hasNext()) {
    QFile file(sources.next());
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());
    for (const char* const effect : {"ShaderEffect", "layer.", "Effects"}) {
      QVERIFY2(!text.contains(QLatin1String(effect)), qPrintable(file.fileName()));
    }
    ++files;
  }
  QVERIFY2(files > 20, "the sources are where they are looked for");
}

QTEST_MAIN(TextsTest)
#include "texts_test.moc"
