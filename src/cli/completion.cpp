// SPDX-License-Identifier: MIT
#include <map>

#include "cli/help.h"
#include "cli/parser.h"

namespace cli {

namespace {

// "formula" -> "list show add ...": the second words by first word; "" for a single word.
std::map<std::string, std::string> SecondWords() {
  std::map<std::string, std::string> words;
  for (const CommandSpec& command : Commands()) {
    const std::string path(command.path);
    const auto blank = path.find(' ');
    std::string& list = words[path.substr(0, blank)];
    if (blank != std::string::npos) list += (list.empty() ? "" : " ") + path.substr(blank + 1);
  }
  return words;
}

std::string OptionNames(const CommandSpec& command) {
  std::string names;
  for (const OptionSpec& option : CommonOptions()) names += std::string(option.name) + " ";
  for (const OptionSpec& option : command.options) names += std::string(option.name) + " ";
  names.pop_back();
  return names;
}

std::string FirstWords() {
  std::string names;
  for (const auto& [first, second] : SecondWords()) names += (names.empty() ? "" : " ") + first;
  return names;
}

// Bash; zsh runs the same function through its bash emulation.
std::string BashCompletion() {
  std::string text =
      "_ovformula() {\n"
      "  local word=${COMP_WORDS[COMP_CWORD]} first=${COMP_WORDS[1]} second=${COMP_WORDS[2]}\n"
      "  local options= seconds=\n"
      "  case \"$first\" in\n";
  for (const auto& [first, second] : SecondWords()) {
    if (!second.empty()) text += "    " + first + ") seconds=\"" + second + "\" ;;\n";
  }
  text += "  esac\n  case \"$first${seconds:+ $second}\" in\n";
  for (const CommandSpec& command : Commands()) {
    text +=
        "    \"" + std::string(command.path) + "\") options=\"" + OptionNames(command) + "\" ;;\n";
  }
  text +=
      "  esac\n"
      "  if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
      "    COMPREPLY=($(compgen -W \"" +
      FirstWords() +
      " --help --version\" -- \"$word\")"
      " $(compgen -f -X '!*.ovs' -- \"$word\"))\n"
      "  elif [ \"$COMP_CWORD\" -eq 2 ] && [ -n \"$seconds\" ]; then\n"
      "    COMPREPLY=($(compgen -W \"$seconds\" -- \"$word\"))\n"
      "  elif [[ $word == -* ]]; then\n"
      "    COMPREPLY=($(compgen -W \"$options\" -- \"$word\"))\n"
      "  else\n"
      "    COMPREPLY=($(compgen -f -- \"$word\"))\n"
      "  fi\n"
      "}\n"
      "complete -o filenames -F _ovformula ovformula\n";
  return text;
}

std::string FishCompletion() {
  std::string text = "complete -c ovformula -n __fish_use_subcommand -a '" + FirstWords() + "'\n";
  for (const auto& [first, second] : SecondWords()) {
    if (second.empty()) continue;
    text += "complete -c ovformula -f -n '__fish_seen_subcommand_from " + first +
            "; and not __fish_seen_subcommand_from " + second + "' -a '" + second + "'\n";
  }
  for (const CommandSpec& command : Commands()) {
    std::string condition;
    std::string path(command.path);
    const auto blank = path.find(' ');
    condition = "__fish_seen_subcommand_from " + path.substr(0, blank);
    if (blank != std::string::npos)
      condition += "; and __fish_seen_subcommand_from " + path.substr(blank + 1);
    for (const OptionSpec& option : command.options) {
      text += "complete -c ovformula -n '" + condition + "' -l " +
              std::string(option.name.substr(2)) +
              (option.value.empty() || HasOptionalValue(option) ? "" : " -r") + "\n";
    }
  }
  return text;
}

}  // namespace

std::string Completion(std::string_view shell) {
  if (shell == "bash") return BashCompletion();
  if (shell == "zsh") return "autoload -U +X bashcompinit && bashcompinit\n" + BashCompletion();
  if (shell == "fish") return FishCompletion();
  return {};
}

}  // namespace cli
