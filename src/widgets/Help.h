#pragma once
// The one entry point through which the program asks for a help topic (subsystem 9).
// Until the help subsystem exists no handler is installed and a request does nothing.

#include <QString>

#include <functional>

namespace widgets {

using HelpHandler = std::function<void(const QString& topic)>;

void SetHelpHandler(HelpHandler handler);
void ShowHelpTopic(const QString& topic);

}  // namespace widgets
