#include "CallLogs.h"

#include "BtService.h"
#include "Changes.h"
#include "KeyedModel.h"
#include "Texts.h"

namespace btqt {
namespace {

using Log = MWPTypeCallLog;

static_assert(static_cast<int>(CALL_LOG_INCOMING) == CallLogs::Incoming &&
                  static_cast<int>(CALL_LOG_MISSED) == CallLogs::Missed,
              "the types have the numbers of libbtasync's");

}  // namespace

CallLogs::CallLogs(BtService& service)
    : Subject(service, btasync::PART_LOGS),
      m_all(makeModel()),
      m_incoming(makeModel()),
      m_outgoing(makeModel()),
      m_missed(makeModel()) {
  show(now(), btasync::PART_LOGS);
}

RowsModel* CallLogs::all() const { return m_all; }

RowsModel* CallLogs::incoming() const { return m_incoming; }

RowsModel* CallLogs::outgoing() const { return m_outgoing; }

RowsModel* CallLogs::missed() const { return m_missed; }

CallLogs::Model* CallLogs::makeModel() {
  return new Model([](const Log& log) { return QString::number(log.nLogId); },
                   {{"logId", [](const Log& log) { return QVariant(log.nLogId); }},
                    {"type", [](const Log& log) { return QVariant(log.nValue2); }},
                    {"name", [](const Log& log) { return QVariant(toQt(log.strText1)); }},
                    {"number", [](const Log& log) { return QVariant(toQt(log.strText2)); }},
                    {"date", [](const Log& log) { return QVariant(toQt(log.strText3)); }},
                    {"time", [](const Log& log) { return QVariant(toQt(log.strText4)); }},
                    {"seconds", [](const Log& log) { return QVariant(toQt(log.strText5).toInt()); }},
                    {"contactId", [](const Log& log) { return QVariant(log.nValue1); }}},
                   this);
}

void CallLogs::show(const btasync::State& state, unsigned /*parts*/) {
  std::vector<Model::RowPointer> all = toRows(state.logs.logs);
  std::vector<Model::RowPointer> ofType[Missed + 1];
  for (const Model::RowPointer& row : all) {
    if (row->nValue2 >= Incoming && row->nValue2 <= Missed) {
      ofType[row->nValue2].push_back(row);
    }
  }
  m_all->setRows(std::move(all));
  m_incoming->setRows(std::move(ofType[Incoming]));
  m_outgoing->setRows(std::move(ofType[Outgoing]));
  m_missed->setRows(std::move(ofType[Missed]));
  Changes changes(*this);
  setFresh(changes, state.logs.fresh);
}

void CallLogs::remove(int logId, Operation* operation) { ask(service().DeleteCallLog(logId), operation); }

void CallLogs::clear(Type type, Operation* operation) {
  ask(service().DeleteCallLogs(static_cast<CallLogType>(type)), operation);
}

}  // namespace btqt
