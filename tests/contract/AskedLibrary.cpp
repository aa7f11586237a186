#include "contract/AskedLibrary.h"

#include "support/GlibHelpers.h"
#include "support/InterfaceDescription.h"

namespace bttest {

void AskedLibrary::ExpectAsked(const RequestCase& request, const RequestCall& call) {
  const std::string method = request.wire.substr(0, request.wire.find('('));
  if (!request.reply.empty()) {
    SetReply(method, request.reply);
  }
  EXPECT_EQ(call.make(), request.answer) << request.name;
  const std::vector<std::string> expected(request.wire.empty() ? 0 : 1, request.wire);
  EXPECT_EQ(library.recorder.TakeCallTexts(), expected) << request.name;
}

void AskedLibrary::ExpectNotAsked(const RequestCase& request, const RequestCall& call,
                                  const std::string& answer) {
  EXPECT_EQ(call.make(), answer) << request.name;
  EXPECT_EQ(library.recorder.TakeCallTexts(), std::vector<std::string>()) << request.name;
}

void AskedLibrary::SetReply(const std::string& method, const std::string& reply) {
  const std::string type = TupleSignature(BluetoothInterface().Method(method).out);
  OwnedError error;
  const OwnedVariant value(
      g_variant_parse(G_VARIANT_TYPE(type.c_str()), reply.c_str(), nullptr, nullptr, error.Out()));
  ThrowIfSet(error, "the reply of " + method);
  library.recorder.SetReply(method, value.get());
}

std::vector<LogRecord> AskedLibrary::LinesOf(const std::string& source) const {
  std::vector<LogRecord> lines;
  for (const LogRecord& record : log.Records()) {
    if (record.file == source) {
      lines.push_back(record);
    }
  }
  return lines;
}

}  // namespace bttest
