// The phone book, sorted and filtered.

#include "SubjectTest.h"

namespace {

using namespace btqt;
using namespace btasync;
using namespace bttest;
using bttest::Contact;

}  // namespace

class ContactsTest : public SubjectTest {
  Q_OBJECT

 private Q_SLOTS:
  void contactsAreSortedAndFiltered();
  void fiveThousandContacts();
};

void ContactsTest::contactsAreSortedAndFiltered() {
  Contacts* const contacts = m_bt->contacts();
  RowsWatch watch(*contacts->model());
  settle();
  QCOMPARE(contacts->count(), 4);
  const auto names = [&] { return column(contacts->model(), "name").join(QLatin1Char('|')); };
  const auto filtered = [&](const char* filter) {
    contacts->setFilter(QString::fromUtf8(filter));
    return names();
  };
  QStringList sorted = column(contacts->model(), "name");
  QCOMPARE(QSet<QString>(sorted.begin(), sorted.end()).size(), 4);
  QVERIFY(sorted.indexOf(QStringLiteral("Ada Arndt")) < sorted.indexOf(QStringLiteral("Ben Baker")));
  QVERIFY(sorted.indexOf(QStringLiteral("Ben Baker")) < sorted.indexOf(QStringLiteral("Jörg Jäger")));
  const QVariantMap joerg = contacts->model()->get(contacts->model()->rowOf(QStringLiteral("4")));
  QCOMPARE(joerg[QStringLiteral("section")].toString(), QStringLiteral("J"));
  const QVariantMap number = joerg[QStringLiteral("numbers")].toList().value(0).toMap();
  QCOMPARE(number[QStringLiteral("number")].toString(), QStringLiteral("+49170000004"));
  QCOMPARE(number[QStringLiteral("kind")].toInt(), int{Contacts::Mobile});
  const QVariantMap doctors = contacts->model()->get(contacts->model()->rowOf(QStringLiteral("7")));
  QCOMPARE(doctors[QStringLiteral("section")].toString(), QStringLiteral("A"));

  QCOMPARE(filtered("jorg"), QStringLiteral("Jörg Jäger"));
  QCOMPARE(filtered("JÄ"), QStringLiteral("Jörg Jäger"));
  QCOMPARE(filtered("bak be"), QStringLiteral("Ben Baker"));
  QCOMPARE(filtered("116117"), QStringLiteral("Ärzte am Hafen"));
  QCOMPARE(filtered("aker"), QString());
  QCOMPARE(contacts->count(), 4);
  QCOMPARE(filtered("").count(QLatin1Char('|')), 3);
  QVERIFY(watch.isInStep());

  QCOMPARE(column(contacts->favourites(), "name"), QStringList(QStringLiteral("Ben Baker")));
  watch.take();
  contacts->setFavourite(1, true);
  QVERIFY(asked().startsWith(QLatin1String("SetContactFavorite(1")));
  QCOMPARE(contacts->favourites()->count(), 1);
  m_fake->WillAnswer(&Service::FavoriteContacts, std::vector<MWPTypeContact>{Contact(1, "Ada", "Arndt", ""),
                                                                             Contact(2, "Ben", "Baker", "")});
  m_fake->Emit(FavoriteChanged{1, true});
  settle();
  QCOMPARE(watch.take(), QStringLiteral("+0 -0 >0 =1"));
  QCOMPARE(contacts->favourites()->count(), 2);
  contacts->remove(1);
  QVERIFY(asked().startsWith(QLatin1String("DeleteContactById(1")));
  QCOMPARE(watch.resets, 0);
}

void ContactsTest::fiveThousandContacts() {
  std::vector<MWPTypeContact> book;
  for (int id = 1; id <= 5000; ++id) {
    const std::string name = std::to_string(10000 + id * 7 % 5000);
    book.push_back(Contact(id, "First" + name, "Family" + name, "+49" + name));
  }
  m_fake->WillAnswer(&Service::Contacts, book);
  Contacts* const contacts = m_bt->contacts();
  RowsWatch watch(*contacts->model());
  settle();
  QCOMPARE(contacts->model()->count(), 5000);
  QCOMPARE(watch.take(), QStringLiteral("+1 -0 >0 =0"));
  contacts->setFilter(QStringLiteral("first149"));
  QCOMPARE(contacts->model()->count(), 100);
  contacts->setFilter(QString());
  QCOMPARE(contacts->model()->count(), 5000);
  QVERIFY(watch.isInStep());
  watch.take();

  // One of them gets a name that is further down, another one another number.
  book[0].strText1 = "Zoe";
  book[2].listNumbers.front().vecValues = {"110"};
  m_fake->WillAnswer(&Service::Contacts, book);
  m_fake->Emit(PhoneBookDeleted{true});
  settle();
  QCOMPARE(watch.take(), QStringLiteral("+0 -0 >1 =2"));
  QCOMPARE(contacts->model()->rowOf(QStringLiteral("1")), 4999);
  QCOMPARE(watch.resets, 0);
}

QTEST_GUILESS_MAIN(ContactsTest)
#include "contacts_test.moc"
