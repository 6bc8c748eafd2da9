#include "widgets/Help.h"

namespace widgets {

namespace {
HelpHandler& Handler() {
  static HelpHandler handler;
  return handler;
}
}  // namespace

void SetHelpHandler(HelpHandler handler) { Handler() = std::move(handler); }

void ShowHelpTopic(const QString& topic) {
  if (Handler()) Handler()(topic);
}

}  // namespace widgets
