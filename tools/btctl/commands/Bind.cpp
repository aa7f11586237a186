#include "btctl/commands/Bind.h"

#include "btctl/commands/Reply.h"

namespace btctl {

Json& ResultIn(Reply& reply) { return reply.result; }

Json& NextOutIn(Reply& reply) { return reply.outs.emplace_back(); }

}  // namespace btctl
