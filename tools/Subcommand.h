#pragma once

#include <CLI/CLI.hpp>
#include <functional>

/// The exit statuses of all subcommands.
enum Status : int {
    /// All is sound.
    Sound = 0,
    /// Done, but errors were reported.
    ErrorsReported = 1,
    /// Not done, or not to the end.
    NotDone = 2,
};

/// What a subcommand does; returns the exit status. What it throws is printed, and is NotDone.
using Work = std::function<Status()>;

/// Declares a subcommand's options, which live as long as the work.
using Configure = Work(CLI::App& options);

Configure configureExtract;
Configure configureInspect;
Configure configureRewrap;
