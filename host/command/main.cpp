#include <CLI/CLI.hpp>
#include <exception>

#include "host/base/Messages.h"
#include "host/base/Process.h"
#include "host/command/Commands.h"

namespace {

std::string NotEmpty(const std::string &text) { return text.empty() ? "must not be empty" : ""; }

void AddPluginOption(CLI::App *verb, std::filesystem::path &plugin) {
  verb->add_option("--plugin", plugin,
                   "The extension bundle to load, instead of the one installed with this program")
      ->type_name("BUNDLE")
      ->check(NotEmpty);
}

void AddPrinterAndTicket(CLI::App *verb, std::filesystem::path &ppd,
                         std::filesystem::path &ticket) {
  verb->add_option("--ppd", ppd, "The printer's PPD file")->type_name("FILE")->required();
  verb->add_option(
          "--ticket", ticket,
          "Print settings of the job, an XML property list: read first, where there is one, "
          "and written at the end")
      ->type_name("FILE")
      ->check(NotEmpty);
}

int Run(int argc, char **argv) {
  CLI::App app("A print dialog for extension bundles, such as background numbering.", "pdeprint");
  app.set_version_flag("--version", "pdeprint " PDEPRINT_VERSION);
  app.require_subcommand(1);

  ShowOptions show_options;
  CLI::App *show = app.add_subcommand(
      "show", "Show the panel in a window. Closing it prints the summary and the job options.");
  AddPrinterAndTicket(show, show_options.ppd, show_options.ticket);
  AddPluginOption(show, show_options.plugin);
  show->add_option("--snapshot", show_options.snapshot,
                   "Write a picture of the panel as it stood when the window was closed")
      ->type_name("PNG")
      ->check(NotEmpty);

  CheckOptions check_options;
  CLI::App *check = app.add_subcommand(
      "check", "Say for each PPD file whether the panel is offered, or why not. Needs no display.");
  check->add_option("PPD", check_options.ppds, "PPD files")->type_name("FILE")->required();
  AddPluginOption(check, check_options.plugin);
  check->add_flag("--json", check_options.json, "Answer in JSON");

  SettingsOptions settings_options;
  CLI::App *settings =
      app.add_subcommand("settings", "Change and print the settings of a job. Needs no display.");
  AddPrinterAndTicket(settings, settings_options.ppd, settings_options.ticket);
  AddPluginOption(settings, settings_options.plugin);
  settings
      ->add_option(
          "--set", settings_options.set,
          "Give a setting a value, for instance Valid=On or StartNumber=25; may be repeated")
      ->type_name("NAME=VALUE")
      ->allow_extra_args(false);
  settings->add_flag("--json", settings_options.json, "Answer in JSON");

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError &error) {
    return app.exit(error) == 0 ? kDone : kWrongUsage;
  }
  if (show->parsed()) return Show(show_options);
  if (check->parsed()) return Check(check_options);
  return Settings(settings_options);
}

}  // namespace

int main(int argc, char **argv) {
  PrepareProcess();
  try {
    return Run(argc, argv);
  } catch (const std::exception &exception) {
    Complain(exception.what());
    return kFailed;
  }
}
