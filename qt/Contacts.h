#ifndef QT_CONTACTS_H
#define QT_CONTACTS_H

#include <QCollator>
#include <QString>
#include <memory>
#include <vector>

#include "RowsModel.h"
#include "Subject.h"

namespace btqt {

struct ContactRow;

/// The phone book of the connected phone.
class BTASYNCQT_API Contacts : public Subject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("BtService.contacts is one")
  /// The contacts that fit the filter, sorted by name, by contactId. Roles: contactId, name, numbers (a list
  /// of objects with kind (NumberKind) and number), favourite, section (the letter to put it under, or #).
  Q_PROPERTY(btqt::RowsModel* model READ model CONSTANT)
  /// The favourite contacts, whatever the filter; the same roles.
  Q_PROPERTY(btqt::RowsModel* favourites READ favourites CONSTANT)
  /// The number of contacts, whatever the filter.
  Q_PROPERTY(int count READ count NOTIFY countChanged)
  /// Words: each begins a word of a name, or is in a number. Upper case and accents do not count. At first
  /// empty.
  Q_PROPERTY(QString filter READ filter WRITE setFilter NOTIFY filterChanged)

 public:
  enum NumberKind { Other, Mobile, Home, Work };
  Q_ENUM(NumberKind)

  explicit Contacts(BtService& service);
  ~Contacts() override;

  RowsModel* model() const;
  RowsModel* favourites() const;
  int count() const { return static_cast<int>(m_rows.size()); }
  QString filter() const { return m_filter; }
  void setFilter(const QString& filter);

  Q_INVOKABLE void setFavourite(int contactId, bool favourite, btqt::Operation* operation = nullptr);
  /// Deletes a contact.
  Q_INVOKABLE void remove(int contactId, btqt::Operation* operation = nullptr);

 Q_SIGNALS:
  void countChanged();
  void filterChanged();

 private:
  using Rows = std::vector<std::shared_ptr<const ContactRow>>;

  void show(const btasync::State& state, unsigned parts) override;
  Rows rowsOf(const btasync::State& state) const;
  void showFiltered();

  QCollator m_collator;
  Rows m_rows;  ///< all of them, sorted
  QString m_filter;
  KeyedModel<ContactRow>* m_model;
  KeyedModel<ContactRow>* m_favourites;
};

}  // namespace btqt

#endif
