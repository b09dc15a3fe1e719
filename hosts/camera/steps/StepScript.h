// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include <optional>
#include <vector>

// A short list of things to do with the window, for pictures and trials. Steps are divided by ";"
// or line breaks, "#" begins a comment to the end of the line. "set", "line" and "check" wait a
// while for what they need: it may come when the camera was read.
//
//   tab=INDEX or TEXT      show the tab; a page by its number
//   tab=NAME:INDEX         show that one of the tabs with that object name
//   select=NAME            press the row of that name (display name) in a visible list
//   line=TEXT              press the line of a visible table that has that text in a cell
//   check=TEXT:1           check (1) or uncheck (0) the box of such a line
//   expand=NAME            open the branch; "*" opens all
//   collapse=NAME          close the branch; "*" closes all
//   set=NAME:VALUE         enter a value into the editor of the row
//   choose=NAME:ENTRY      choose an entry of the box with that object name
//   menu=NAME              open the context menu of the row
//   press=NAME             click the button or menu line with that object name or text
//   search=TEXT            type into the search field
//   type=TEXT              type into what has the focus
//   key=KEY                press a key there, named as in "Return" or "Ctrl+A"
//   file=NAME              enter the name into the file dialog that is open, and accept it; a file
//                          of that name is replaced
//   scroll=NAME            bring the row into sight; "top" and "bottom" scroll the lists
//   size=WxH               resize the window
//   center                 move the dialog that lies on top to the middle of the window
//   wait=MS                wait
//   until=TEXT             wait until a visible label has that text in it, for 30 s at the most
//   settle                 wait until nothing new is read
//   picture=FILE           save a picture of the window
struct StepScript
{
    struct Step
    {
        QString verb;
        QString argument;
    };
    std::vector<Step> steps;

    // Nothing, and an English sentence in *error, when a step is not understood.
    static std::optional<StepScript> parse(const QString& text, QString* error);
};
