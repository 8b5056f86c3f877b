#include "host/command/CommandLine.h"

#include <CLI/CLI.hpp>
#include <sstream>

#include "host/base/Localized.h"
#include "host/base/Messages.h"
#include "host/base/Process.h"
#include "host/base/Text.h"
#include "host/command/Commands.h"
#include "host/command/ParentWindow.h"

namespace {

std::string NotEmpty(const std::string &text) { return text.empty() ? "must not be empty" : ""; }

std::string IsPositiveTime(const std::string &text) {
  double seconds = 0;
  if (!CLI::detail::lexical_cast(text, seconds) || !(seconds >= 0.1) || !(seconds <= 3600)) {
    return "must be a number of seconds from 0.1 to 3600";
  }
  return "";
}

template <typename Value>
CLI::Option *AddText(CLI::App *verb, const std::string &names, Value &value,
                     const std::string &what, const std::string &type) {
  return verb->add_option(names, value, what)->type_name(type)->check(NotEmpty);
}

void AddSurroundings(CLI::App *verb, Surroundings &surroundings) {
  AddText(verb, "--plugin", surroundings.plugin,
          "An extension bundle to load before those that are installed", "BUNDLE");
  verb->add_option_function<double>(
          "--timeout",
          [&surroundings](const double &seconds) {
            surroundings.limit = std::chrono::milliseconds(static_cast<long long>(seconds * 1000));
          },
          "How long the print server may take for an answer (default: 5)")
      ->type_name("SECONDS")
      ->check(IsPositiveTime);
}

CLI::Option *AddQueue(CLI::App *verb, std::string &queue, const std::string &what) {
  return AddText(verb, "-d,--queue", queue, what, "QUEUE");
}

void AddBeginning(CLI::App *verb, JobSource &source, const std::string &ticket) {
  AddText(verb, "-P,--preset", source.preset, "Begin with the settings of a preset", "PRESET");
  AddText(verb, "--ticket", source.ticket, ticket, "FILE");
}

void AddChanges(CLI::App *verb, std::vector<std::string> &set) {
  verb->add_option("--set", set,
                   "Give a setting of an extension, or an option of the printer, a value, for "
                   "instance Valid=On, StartNumber=25 or Duplex=None; may be repeated")
      ->type_name("NAME=VALUE")
      ->allow_extra_args(false);
}

CLI::App *AddPPDChange(CLI::App &app, const std::string &name, const std::string &what,
                       PPDChangeOptions &options) {
  CLI::App *verb = app.add_subcommand(name, what);
  AddText(verb, "PPD", options.ppd, "The PPD file to begin with; it may be compressed", "FILE");
  AddQueue(verb, options.queue, "A queue of the print server in place of the PPD file");
  AddText(verb, "-o,--output", options.output,
          "The PPD file to write; for a queue QUEUE.ppd in this folder unless given", "FILE");
  verb->add_flag("--apply", options.apply,
                 "Give the queue the new PPD file, as an administrator; no file is written");
  verb->add_flag("--all", options.all, "All queues of the print server, with a report");
  verb->add_flag("--json", options.json, "Report in JSON");
  AddSurroundings(verb, options);
  return verb;
}

void CheckPPDChange(const PPDChangeOptions &options) {
  const int named = (options.ppd.empty() ? 0 : 1) + (options.queue.empty() ? 0 : 1);
  if (options.all && named > 0) {
    throw CLI::ValidationError("--all", "name neither a PPD file nor a queue then");
  }
  if (!options.all && named != 1) {
    throw CLI::ValidationError("PPD", "name either a PPD file or a queue (-d)");
  }
  if (options.json && !options.all) {
    throw CLI::ValidationError("--json", "only the report about all queues (--all) is in JSON");
  }
  if (options.all && !options.output.empty()) {
    throw CLI::ValidationError("--all", "each queue has a file of its own; leave out --output");
  }
  if (!options.ppd.empty() && options.apply) {
    throw CLI::ValidationError("--apply", "only a queue (-d) can be given a PPD file");
  }
  if (!options.ppd.empty() && options.output.empty()) {
    throw CLI::RequiredError("--output");
  }
  if (options.apply && !options.output.empty()) {
    throw CLI::ValidationError("--apply", "no file is written then; leave out --output");
  }
}

CLI::App *AddPortal(CLI::App &app, PortalOptions &options) {
  using Action = PortalOptions::Action;
  CLI::App *verb = app.add_subcommand(
      "portal",
      "Whether applications that print through the desktop's portal open this program's dialog. "
      "Needs no display.");
  const auto add = [&](const std::string &name, Action action, const std::string &what) {
    return verb->add_flag_callback(
        name, [&options, action] { options.action = action; }, what);
  };
  CLI::Option *enable = add("--enable", Action::kEnable, "Let them, for this user");
  CLI::Option *disable = add("--disable", Action::kDisable, "Take that back")->excludes(enable);
  add("--status", Action::kStatus, "Say how it stands")->excludes(enable)->excludes(disable);
  return verb;
}

const char kTicketReadAndWritten[] =
    "Print settings of the job, an XML property list: read first, where there is one, and written "
    "at the end";

// What was not understood explains more than what is missing for want of it.
std::string WhatIsWrong(const CLI::App &app, const CLI::ParseError &error) {
  const std::vector<std::string> words = app.remaining(/*recurse=*/true);
  const auto unknown = std::ranges::find_if(
      words, [](const std::string &word) { return word.size() > 1 && word.starts_with('-'); });
  const CLI::App *verb = app.get_subcommands().empty() ? nullptr : app.get_subcommands().front();
  const std::string help =
      verb == nullptr ? "pdeprint --help" : "pdeprint " + verb->get_name() + " --help";
  if (unknown != words.end()) {
    return Localized("there is no option %1; `%2` lists them", {Quoted(*unknown), help});
  }
  return std::string(error.what()) + "; `" + help + "` says more";
}

int RunShow(const std::vector<std::string> &arguments) {
  std::vector<std::string> words = {"pdeprint", "show"};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char *> pointers;
  for (std::string &word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  return RunCommandLine(static_cast<int>(words.size()), pointers.data());
}

}  // namespace

int RunCommandLine(int argc, char **argv) {
  CLI::App app("A print dialog for extension bundles, such as background numbering.", "pdeprint");
  app.set_version_flag("--version", "pdeprint " PDEPRINT_VERSION);
  app.require_subcommand(1);

  ShowOptions show_options;
  CLI::App *show =
      app.add_subcommand("show", "Open the print dialog for files, or for settings alone");
  CLI::Option *show_queue = AddQueue(show, show_options.queue,
                                     "The queue to begin with (default: the user's default queue)");
  AddText(show, "--ppd", show_options.ppd,
          "A printer's PPD file in place of a queue: the choices are printed to standard output, "
          "and no job is sent",
          "FILE")
      ->excludes(show_queue);
  AddBeginning(show, show_options, kTicketReadAndWritten);
  AddText(show, "--snapshot", show_options.snapshot,
          "Write a picture of the dialog as it stood when it was accepted", "PNG");
  show->add_flag("--wait", show_options.wait, "Stay until the job has been printed");
  show->add_flag("--alert", show_options.alert,
                 "If the dialog cannot open, say why in a window too: for programs that start this "
                 "where nobody reads standard error");
  show->add_flag("--warm", show_options.warm,
                 "Get ready and wait; the arguments come as one line on standard input, a JSON "
                 "array of texts");
  show->add_flag("--json", show_options.json, "Say in JSON how the dialog has ended");
  AddText(show, "--title", show_options.title,
          "The document's name, in the title and for the job (default: the file's)", "TITLE");
  AddText(show, "--app", show_options.application,
          "The name of the application that prints, in the title", "NAME");
  AddText(show, "--accept-label", show_options.accept_label,
          "What the button says that Return presses", "TEXT");
  show->add_option_function<std::string>(
          "--parent",
          [&show_options](const std::string &window) {
            show_options.parent = ParentWindowIn(window).value_or(0);
          },
          "Be the dialog of another program's window: x11: and its number in hexadecimal digits; "
          "wayland: and a name is ignored")
      ->type_name("WINDOW")
      ->check(WhyNoParentWindow);
  AddSurroundings(show, show_options);
  show->add_option("FILE", show_options.files, "Files to print")->type_name("");

  PrintOptions print_options;
  CLI::App *print = app.add_subcommand("print", "Print files as one job. Needs no display.");
  AddQueue(print, print_options.queue, "The queue (default: the user's default queue)");
  AddBeginning(
      print, print_options,
      "Print settings of the job, an XML property list; it is only read, and must be there");
  AddChanges(print, print_options.set);
  AddText(print, "-n,--copies", print_options.copies, "How many copies", "COPIES");
  AddText(print, "-t,--title", print_options.title, "The job's name (default: the file's)",
          "TITLE");
  print->add_flag("--wait", print_options.wait, "Wait until the job has been printed");
  // In no group: nobody is told of it but the print portal.
  print->add_option("--unreadable", print_options.unreadable, "Why, in the system's numbers")
      ->group("");
  print->add_flag("--alert", print_options.alert,
                  "If the job is not printed, say why in a window too, if there is a display");
  AddSurroundings(print, print_options);
  print->add_option("FILE", print_options.files, "Files to print")->type_name("")->required();

  SaveOptions save_options;
  CLI::App *save = app.add_subcommand(
      "save",
      "Keep the pages that would be printed, as a PDF file or as pictures. Needs no display.");
  AddText(save, "-o,--output", save_options.output,
          "The file to write; with --png one for each page, FILE-1.png and so on", "FILE")
      ->required();
  CLI::Option *png = save->add_flag("--png", save_options.png, "Write a PNG picture of each page");
  save->add_option("--resolution", save_options.dpi,
                   "Pixels to an inch of the pictures (default: 150)")
      ->type_name("DPI")
      ->check(CLI::Range(10, 1200))
      ->needs(png);
  save->add_flag("--force", save_options.replaces, "Replace what is there already");
  CLI::Option *save_queue = AddQueue(
      save, save_options.queue,
      "The queue for which pages are laid out (default: the user's default queue; if there "
      "is none, usual paper without margins)");
  AddText(save, "--ppd", save_options.ppd, "A printer's PPD file in place of a queue", "FILE")
      ->excludes(save_queue);
  AddBeginning(
      save, save_options,
      "Print settings of the job, an XML property list; it is only read, and must be there");
  AddChanges(save, save_options.set);
  AddText(save, "-n,--copies", save_options.copies, "How many copies", "COPIES");
  AddSurroundings(save, save_options);
  save->add_option("FILE", save_options.files, "Files to lay out")->type_name("")->required();
  save_options.is_for_file = true;

  SettingsOptions settings_options;
  CLI::App *settings =
      app.add_subcommand("settings", "Change and print the settings of a job. Needs no display.");
  CLI::Option *settings_queue =
      AddQueue(settings, settings_options.queue, "The queue (default: the user's default queue)");
  AddText(settings, "--ppd", settings_options.ppd, "A printer's PPD file in place of a queue",
          "FILE")
      ->excludes(settings_queue);
  AddBeginning(settings, settings_options, kTicketReadAndWritten);
  AddChanges(settings, settings_options.set);
  settings->add_flag("--json", settings_options.json, "Answer in JSON");
  AddSurroundings(settings, settings_options);

  CheckOptions check_options;
  CLI::App *check = app.add_subcommand(
      "check",
      "Say for each PPD file or queue whether panels are offered, or why not. Needs no display.");
  check->add_option("PPD", check_options.ppds, "PPD files")->type_name("FILE");
  check->add_option("-d,--queue", check_options.queues, "A queue; may be repeated")
      ->type_name("QUEUE")
      ->check(NotEmpty)
      ->allow_extra_args(false);
  check->add_flag("--json", check_options.json, "Answer in JSON");
  AddSurroundings(check, check_options);

  QueuesOptions queues_options;
  CLI::App *queues = app.add_subcommand(
      "queues",
      "List the queues, and whether panels are offered on each, or why not. Needs no display.");
  queues->add_flag("--json", queues_options.json, "Answer in JSON");
  AddSurroundings(queues, queues_options);

  PPDChangeOptions enable_options;
  CLI::App *enable =
      AddPPDChange(app, "enable",
                   "Add the printer options of extension bundles to a printer's PPD file, or to a "
                   "queue. Needs no display.",
                   enable_options);
  enable
      ->add_option_function<std::string>(
          "--method",
          [&enable_options](const std::string &method) {
            enable_options.method =
                method == "printer" ? DrawingMethod::kPrinter : DrawingMethod::kFilter;
          },
          "Who does what the options say: the printer, or a filter of the print server "
          "(default: the printer if it interprets PostScript)")
      ->type_name("printer|filter")
      ->check(CLI::IsMember({"printer", "filter"}));

  PPDChangeOptions disable_options;
  CLI::App *disable =
      AddPPDChange(app, "disable",
                   "Take out of a PPD file, or a queue, what enable has added. Needs no display.",
                   disable_options);

  PortalOptions portal_options;
  CLI::App *portal = AddPortal(app, portal_options);

  try {
    app.parse(argc, argv);
    if (enable->parsed()) CheckPPDChange(enable_options);
    if (disable->parsed()) CheckPPDChange(disable_options);
    if (save->parsed() && save_options.output == "-") {
      throw CLI::ValidationError("--output",
                                 "the pages become files, never standard output; name a file");
    }
    if (show_options.warm && argc != 3) {
      throw CLI::ValidationError("--warm", "everything else comes with the request");
    }
    if (check->parsed() && check_options.ppds.empty() && check_options.queues.empty()) {
      throw CLI::RequiredError("PPD or --queue");
    }
    const bool is_portal_alone = portal->count_all() == 1;
    if (portal->parsed() && is_portal_alone) {
      throw CLI::RequiredError("--enable, --disable or --status");
    }
  } catch (const CLI::ParseError &error) {
    const auto is_named = [argv](const CLI::App *verb) { return verb->check_name(argv[1]); };
    if (argc > 1 && argv[1][0] != '-' && app.get_subcommands(is_named).empty()) {
      Complain(Localized("there is no verb %1; `pdeprint --help` lists them", {Quoted(argv[1])}));
      return kWrongUsage;
    }
    std::ostringstream help, ignored;
    if (app.exit(error, help, ignored) == 0) return PrintResults(help.str()) ? kDone : kFailed;
    Complain(WhatIsWrong(app, error));
    return kWrongUsage;
  }
  if (show->parsed()) return show_options.warm ? ShowWhenAsked(RunShow) : Show(show_options);
  if (print->parsed()) return Print(print_options);
  if (save->parsed()) return Save(save_options);
  if (settings->parsed()) return Settings(settings_options);
  if (check->parsed()) return Check(check_options);
  if (enable->parsed()) return Enable(enable_options);
  if (disable->parsed()) return Disable(disable_options);
  if (portal->parsed()) return Portal(portal_options);
  return Queues(queues_options);
}
