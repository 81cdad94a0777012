#pragma once
// Dialogs for tests and batch work: answers come from a script, every message is recorded so a
// test can assert its exact text, icon and title.
#include <deque>
#include <string>
#include <vector>

#include "platform/dialogs.h"

namespace tellux {

struct RecordedMessage {
  std::string text;
  Buttons buttons;
  Icon icon;
  std::string title;
};

class ScriptedDialogs : public Dialogs {
 public:
  // Queues: messages with buttons other than Ok take the next answer (Yes when none is queued);
  // file dialogs take the next path (Cancel when none, or when the queued entry is empty).
  std::deque<Answer> answers;
  std::deque<std::vector<std::string>> open_choices;
  std::deque<std::string> save_choices;
  std::deque<std::optional<std::string>> inputs;
  std::deque<std::optional<int>> colours;

  std::vector<RecordedMessage> messages;
  std::vector<FileDialogRequest> file_requests;

  Answer show_message(const std::string& text, Buttons buttons, Icon icon,
                      const std::string& title) override;
  std::optional<std::vector<std::string>> show_open_files(
      const FileDialogRequest& request) override;
  std::optional<std::string> show_save_file(const FileDialogRequest& request) override;
  std::optional<std::string> show_input(const std::string& prompt, const std::string& title,
                                        const std::string& initial) override;
  std::optional<int> show_colour(const std::string& title, int initial) override;

  // Texts of all messages shown so far, in order.
  std::vector<std::string> texts() const;
};

// Dialogs for batch work: answered as scripted (questions Yes, file dialogs cancelled unless a
// choice is queued), except that an input box with no queued answer keeps its proposed text, as a
// user pressing Enter would, and that a question asked again right after an error box is answered
// No (Cancel): a write that keeps failing is left, not tried for ever. Every message also goes to a
// sink (standard error in the batch command).
class BatchDialogs : public ScriptedDialogs {
 public:
  using Sink = void (*)(const std::string&);
  explicit BatchDialogs(Sink sink) : sink_(sink) {}
  Answer show_message(const std::string& text, Buttons buttons, Icon icon,
                      const std::string& title) override;
  std::optional<std::string> show_input(const std::string& prompt, const std::string& title,
                                        const std::string& initial) override;
  // Messages with the exclamation or critical sign: those that make a batch command fail.
  int errors() const;

 private:
  Sink sink_;
};

}  // namespace tellux
