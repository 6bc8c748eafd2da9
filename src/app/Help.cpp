#include "app/Help.h"

namespace app {

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

}  // namespace app
