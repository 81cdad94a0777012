#include "platform/headless/scripted_dialogs.h"

namespace tellux {

Answer ScriptedDialogs::show_message(const std::string& text, Buttons buttons, Icon icon,
                                     const std::string& title) {
  messages.push_back({text, buttons, icon, title});
  if (buttons == Buttons::Ok) return Answer::Ok;
  if (answers.empty()) return buttons == Buttons::OkCancel ? Answer::Ok : Answer::Yes;
  const Answer a = answers.front();
  answers.pop_front();
  return a;
}

std::optional<std::vector<std::string>> ScriptedDialogs::show_open_files(
    const FileDialogRequest& request) {
  file_requests.push_back(request);
  if (open_choices.empty()) return std::nullopt;
  auto choice = open_choices.front();
  open_choices.pop_front();
  if (choice.empty()) return std::nullopt;
  return choice;
}

std::optional<std::string> ScriptedDialogs::show_save_file(const FileDialogRequest& request) {
  file_requests.push_back(request);
  if (save_choices.empty()) return std::nullopt;
  std::string choice = save_choices.front();
  save_choices.pop_front();
  if (choice.empty()) return std::nullopt;
  return choice;
}

std::optional<std::string> ScriptedDialogs::show_input(const std::string&, const std::string&,
                                                       const std::string&) {
  if (inputs.empty()) return std::nullopt;
  auto v = inputs.front();
  inputs.pop_front();
  return v;
}

std::optional<int> ScriptedDialogs::show_colour(const std::string&, int) {
  if (colours.empty()) return std::nullopt;
  auto v = colours.front();
  colours.pop_front();
  return v;
}

std::vector<std::string> ScriptedDialogs::texts() const {
  std::vector<std::string> out;
  for (const auto& m : messages) out.push_back(m.text);
  return out;
}

Answer BatchDialogs::show_message(const std::string& text, Buttons buttons, Icon icon,
                                  const std::string& title) {
  if (sink_) sink_(text);
  // The same question again after an error box (a write that failed and is offered once more):
  // batch work takes the way out instead of going round for ever.
  const size_t n = messages.size();
  const bool asked_again =
      buttons != Buttons::Ok && answers.empty() && n >= 2 && messages[n - 2].text == text &&
      (messages[n - 1].icon == Icon::Exclamation || messages[n - 1].icon == Icon::Critical);
  const Answer answer = ScriptedDialogs::show_message(text, buttons, icon, title);
  if (!asked_again) return answer;
  return buttons == Buttons::OkCancel ? Answer::Cancel : Answer::No;
}

std::optional<std::string> BatchDialogs::show_input(const std::string& prompt,
                                                    const std::string& title,
                                                    const std::string& initial) {
  if (inputs.empty()) return initial;
  return ScriptedDialogs::show_input(prompt, title, initial);
}

int BatchDialogs::errors() const {
  int n = 0;
  for (const RecordedMessage& m : messages)
    if (m.icon == Icon::Exclamation || m.icon == Icon::Critical) ++n;
  return n;
}

}  // namespace tellux
