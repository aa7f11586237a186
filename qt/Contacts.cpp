#include "Contacts.h"

#include <QSet>
#include <algorithm>
#include <iterator>
#include <unordered_map>

#include "BtService.h"
#include "Changes.h"
#include "ContactRow.h"
#include "KeyedModel.h"

namespace btqt {
namespace {

constexpr unsigned kParts = btasync::PART_CONTACTS | btasync::PART_FAVORITES;

QString keyOfContact(const ContactRow& row) { return QString::number(row.contact.nContactId); }

std::vector<KeyedModel<ContactRow>::Role> rolesOfContact() {
  return {{"contactId", [](const ContactRow& row) { return QVariant(row.contact.nContactId); }},
          {"name", [](const ContactRow& row) { return QVariant(row.name); }},
          {"numbers", [](const ContactRow& row) { return QVariant(row.numbers); }},
          {"favourite", [](const ContactRow& row) { return QVariant(row.favourite); }},
          {"section", [](const ContactRow& row) { return QVariant(row.section); }}};
}

}  // namespace

Contacts::Contacts(BtService& service)
    : Subject(service, kParts),
      m_model(new KeyedModel<ContactRow>(keyOfContact, rolesOfContact(), this)),
      m_favourites(new KeyedModel<ContactRow>(keyOfContact, rolesOfContact(), this)) {
  m_collator.setCaseSensitivity(Qt::CaseInsensitive);
  show(now(), kParts);
}

Contacts::~Contacts() = default;

RowsModel* Contacts::model() const { return m_model; }

RowsModel* Contacts::favourites() const { return m_favourites; }

void Contacts::show(const btasync::State& state, unsigned /*parts*/) {
  const std::size_t countBefore = m_rows.size();
  m_rows = rowsOf(state);
  Rows favourites;
  std::copy_if(m_rows.begin(), m_rows.end(), std::back_inserter(favourites),
               [](const auto& row) { return row->favourite; });
  m_favourites->setRows(std::move(favourites));
  showFiltered();

  Changes changes(*this);
  if (m_rows.size() != countBefore) {
    changes.add(&Contacts::countChanged);
  }
  setFresh(changes, state.contacts.fresh && state.favorites.fresh);
}

Contacts::Rows Contacts::rowsOf(const btasync::State& state) const {
  QSet<int> favourites;
  for (const MWPTypeContact& contact : state.favorites.contacts) {
    favourites.insert(contact.nContactId);
  }
  // A row costs: those that have not changed are kept.
  std::unordered_map<int, std::shared_ptr<const ContactRow>> known;
  for (const auto& row : m_rows) {
    known.emplace(row->contact.nContactId, row);
  }
  Rows rows;
  rows.reserve(state.contacts.contacts.size());
  for (const MWPTypeContact& contact : state.contacts.contacts) {
    const bool isFavourite = favourites.contains(contact.nContactId);
    const auto old = known.find(contact.nContactId);
    rows.push_back(old != known.end() && old->second->isOf(contact, isFavourite)
                       ? old->second
                       : std::make_shared<const ContactRow>(contact, isFavourite, m_collator));
  }
  std::stable_sort(rows.begin(), rows.end(),
                   [](const auto& one, const auto& other) { return one->order < other->order; });
  return rows;
}

void Contacts::setFilter(const QString& filter) {
  if (m_filter == filter) {
    return;
  }
  m_filter = filter;
  showFiltered();
  Q_EMIT filterChanged();
}

void Contacts::showFiltered() {
  const QStringList words = foldedWords(m_filter);
  Rows rows;
  std::copy_if(m_rows.begin(), m_rows.end(), std::back_inserter(rows),
               [&](const auto& row) { return row->fits(words); });
  m_model->setRows(std::move(rows));
}

void Contacts::setFavourite(int contactId, bool favourite, Operation* operation) {
  ask(service().SetContactFavorite(contactId, favourite), operation);
}

void Contacts::remove(int contactId, Operation* operation) {
  ask(service().DeleteContact(contactId), operation);
}

}  // namespace btqt
