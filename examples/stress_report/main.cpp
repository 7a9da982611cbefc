// Reads a solver's result file or a model saved before, tells what is in it, and writes what is asked for: a picture, a
// table, a model. Nothing is written before all is computed.

#include "../support/host_ReadFile.h"
#include "../support/host_Session.h"
#include "frd_Reader.h"
#include "frd_Skin.h"
#include "host_Interruption.h"
#include "host_MakeScene.h"
#include "host_ModelFile.h"
#include "host_Options.h"
#include "host_Picture.h"
#include "host_Printable.h"
#include "host_Report.h"
#include "host_Step.h"
#include "host_Tables.h"
#include "host_WriteFile.h"

#include <wip/wip_ConsoleReporter.h>
#include <wip/wip_Progress.h>
#include <wip/wip_ScopedReporter.h>

#include <algorithm>
#include <csignal>
#include <exception>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>

namespace {

constexpr int failed = 2;
constexpr int interrupted = 130;  // as shells have it: 128 and the number of the signal

void PrintFailure(const std::string& what) { std::cerr << "stress_report: " << host_Printable(what) << '\n'; }

/// Puts the name of the file before what goes wrong with it.
template <class Work>
void Naming(const std::string& path, const Work& work) {
    try {
        work();
    } catch (const std::exception& failure) {
        throw std::runtime_error(path + ": " + failure.what());
    }
}

frd_Model ReadResults(const std::string& path, std::ostream& notes) {
    wip_ProgressObj progress;
    frd_Model model = frd_Read(host_ReadFile(path), notes, [](float part) {
        wip_WIP::Instance().InterruptedThrow();
        wip_Progress::Instance().Update(part);
    });
    if (model.nodes.empty()) throw std::runtime_error("the file has no nodes");
    return model;
}

void RefuseToOverwrite(const host_Options& options) {
    std::error_code ignored;
    for (const std::string* path : {&options.picture, &options.csv, &options.save})
        if (std::filesystem::equivalent(options.Input(), *path, ignored))
            throw std::runtime_error("would be overwritten by an output");
}

host_ModelFile Computed(wip_ProgressObj& progress, const host_Options& options, host_Choice& choice,
                        std::ostream& report, std::ostream& notes) {
    host_ModelFile file;
    std::vector<host_Face> skin;
    host_Step(progress, 0.3F, "Reading", [&] {
        if (options.load.empty())
            file.model = ReadResults(options.results, notes);
        else
            file = host_Restored(host_ReadFile(options.load));
        RefuseToOverwrite(options);
        choice = host_Choose(file.model, options.set, options.quantity);
        skin = frd_Skin(file.model);
        if (!options.limit.empty()) Naming("--limit", [&] { host_GiveLimit(file.limit, options.limit); });
        const auto hasStresses = [](const host_Set& set) { return set.stresses != nullptr; };
        if (std::ranges::any_of(host_Sets(file.model), hasStresses)) return;
        if (!options.limit.empty()) throw std::runtime_error("--limit: there are no stresses");
        if (options.load.empty()) notes << "note: there are no stresses\n";
    });
    host_Step(progress, 0.3F, "Report", [&] {
        const auto& [x, y, z] = options.direction;
        report << "Model " << host_Printable(options.Input()) << '\n';
        host_Report(report, file.model, skin,
                    {{options.probes.begin(), options.probes.end()}, gsl_Vector(x, y, z), file.limit});
    });
    if (options.load.empty() && !(options.picture.empty() && options.save.empty())) {
        host_Step(progress, 0.1F, "Scene", [&] {
            file.scene = host_MakeScene(file.model, std::move(skin), choice, options);
            file.sizePixels = options.size;
        });
    }
    return file;
}

/// The outputs wait in `files` to be committed, so that none is there when another one fails.
void AddOutputs(wip_ProgressObj& progress, const host_Options& options, const host_ModelFile& file, const host_Set& set,
                host_WriteFile& files) {
    const auto add = [&](const char* message, const std::string& path, const auto& bytes) {
        if (!path.empty()) host_Step(progress, 0.1F, message, [&] { Naming(path, [&] { files.Add(path, bytes()); }); });
    };
    add("Picture", options.picture, [&] {
        return host_Draw(file.scene, file.sizePixels[0], file.sizePixels[1], options.format,
                         [] { wip_WIP::Instance().InterruptedThrow(); });
    });
    add("Table", options.csv, [&] { return host_Csv(file.model, set); });
    add("Saving", options.save, [&] { return host_Stored(file); });
}

/// One after the other the steps, each a part of the whole progress.
void Run(const host_Options& options, std::ostream& report, std::ostream& notes) {
    wip_ProgressObj progress("Stress report");
    host_Choice choice;
    host_ModelFile file;
    Naming(options.Input(), [&] { file = Computed(progress, options, choice, report, notes); });
    host_WriteFile files;
    AddOutputs(progress, options, file, choice.set, files);
    wip_WIP::Instance().InterruptedThrow();
    files.Commit();
}

/// The exit code.
int Report(const host_Options& options) {
    const host_Session session;
    host_RegisterClasses();
    wip_ConsoleReporter console;
    const wip_ScopedReporter attached(console);
    const host_Interruption interruption(console);
    std::ostringstream report;
    std::ostringstream notes;
    try {
        Run(options, report, notes);
    } catch (const std::exception&) {
        if (console.Interrupted() == 0) throw;
        PrintFailure("interrupted");
        return interrupted;
    }
    std::cerr << notes.str();
    if (!(std::cout << report.str()).flush()) throw std::runtime_error("the report could not be printed");
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const auto options = host_ReadOptions(argc, argv, std::cout);
        if (options) return Report(*options);
        if (!std::cout.flush()) throw std::runtime_error("the help could not be printed");
        return 0;
    } catch (const std::exception& failure) {
        PrintFailure(failure.what());
        return failed;
    }
}
