#include "PairingQuestion.h"

#include "Texts.h"

namespace btqt {
namespace {

static_assert(static_cast<int>(btasync::BT_PAIR_REQUEST_PIN_CODE) == PairingQuestion::PinCode &&
                  static_cast<int>(btasync::BT_PAIR_REQUEST_JUST_WORKS) == PairingQuestion::JustWorks,
              "the kinds have the numbers of libbtasync's");

}  // namespace

PairingQuestion::PairingQuestion(btasync::Service& service, btasync::PairRequested question, QString name,
                                 QObject* parent)
    : QObject(parent), m_service(service), m_question(std::move(question)), m_name(std::move(name)) {
  QQmlEngine::setObjectOwnership(this, QQmlEngine::CppOwnership);
}

QString PairingQuestion::address() const { return toQt(m_question.address); }

QString PairingQuestion::digits() const { return toQt(m_question.digits); }

void PairingQuestion::accept(Operation* operation) { acceptWith(QString(), operation); }

void PairingQuestion::acceptWith(const QString& digits, Operation* operation) {
  // The answer is followed beyond the question's end, which may come before it.
  ask(*parent(),
      m_service.AnswerPair(m_question.address, m_question.question, btasync::PinCode(digits.toStdString())),
      operation);
}

void PairingQuestion::reject(Operation* operation) {
  ask(*parent(), m_service.RejectPair(m_question.address, m_question.question), operation);
}

}  // namespace btqt
