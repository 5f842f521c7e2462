#include "FindingKind.h"

#include <algorithm>

using Code = FindingCode;

const std::vector<FindingKind> &findingKinds()
{
    static const std::vector<FindingKind> kinds{
        {Code::EmptyFile, Severity::Error, "an empty file",
         "There is nothing in the file, or nothing but blanks and line ends. The plugin reads nothing from it.",
         "(nothing)", "the Base64 text of a catalogue, or the JSON text of a list of check items"},
        {Code::NotJson, Severity::Error, "no JSON",
         "The plugin reads a text as a whole or not at all: one character that JSON does not allow, and the navigation "
         "or the list of check items is empty.",
         R"({"enableConfig": [],})", R"({"enableConfig": []})"},
        {Code::Utf16, Severity::Error, "UTF-16",
         "Every other byte of the text is 0, as some editors of other systems write it. The plugin reads UTF-8.",
         "a file saved as \"Unicode\"", "the same file saved as UTF-8"},
        {Code::NotBase64, Severity::Error, "no Base64",
         "The plugin reads a catalogue in Base64 and leaves out what does not belong there. What is left of this file "
         "is no JSON.",
         R"([{"funcType": "Func_HostInfo"}])", "W3siZnVuY1R5cGUiOiAiRnVuY19Ib3N0SW5mbyJ9XQ=="},
        {Code::StrayInBase64, Severity::Warning, "something else among Base64",
         "The plugin leaves out what does not belong into Base64, and all from a NUL byte on. By chance the rest is "
         "JSON; other readers of the file refuse it.",
         "W3si*ZnVuY1R5cGUi…", "W3siZnVuY1R5cGUi…"},
        {Code::EncodedTwice, Severity::Error, "encoded twice",
         "The Base64 text holds another Base64 text in place of JSON.", "VzNzaVpuVnVZMVI1Y0dVaU9pQWlSblZ1WTE5SWIz…",
         "W3siZnVuY1R5cGUiOiAiRnVuY19Ib3N0SW5mbyJ9XQ=="},
        {Code::JsonWhereBase64Belongs, Severity::Error, "JSON where Base64 belongs",
         "The installed catalogue is the JSON text itself. The plugin takes it for Base64 and reads nothing.",
         R"([{"funcType": "Func_HostInfo"}])", "W3siZnVuY1R5cGUiOiAiRnVuY19Ib3N0SW5mbyJ9XQ=="},
        {Code::Base64WhereJsonBelongs, Severity::Error, "Base64 where JSON belongs",
         "The catalogue alone is kept in Base64; the plugin reads the list of check items as it stands.",
         "eyJlbmFibGVDb25maWciOiBbXX0=", R"({"enableConfig": []})"},
        {Code::PemArmour, Severity::Error, "lines around Base64",
         "The text stands between lines such as those of certificates, whose letters the plugin takes for Base64.",
         "-----BEGIN DATA-----\nW3si…\n-----END DATA-----", "W3si…"},
        {Code::WrongType, Severity::Error, "a value of another type",
         "A text where a number is expected, a number where a text is expected, and the like. The plugin takes the "
         "value for an empty text, 0 or false; a number must be whole and have 32 bits.",
         R"("itemId": "101")", R"("itemId": 101)"},
        {Code::UnknownKey, Severity::Warning, "an unknown key", "The plugin does not look for this key.",
         R"("colour": "red")", "(removed)"},
        {Code::MistypedKey, Severity::Error, "a mistyped key",
         "The plugin does not look for this key, but for one that is written much like it. Some keys have odd "
         "spellings, which are kept.",
         R"("subFuncTitle": "审计日志")", R"("subFuncTitile": "审计日志")"},
        {Code::MissingKey, Severity::Error, "a missing key",
         "A key is missing without which the client has nothing to show, or finds nothing.",
         R"({"itemId": 101, "checkValueScript": "/check.sh"})",
         R"({"itemId": 101, "name": "口令长度", "checkValueScript": "/check.sh"})"},
        {Code::DoubledKey, Severity::Warning, "a key that stands twice",
         "Of several members with one key in an object the plugin reads the last alone.",
         R"({"name": "a", "itemId": 1, "name": "b"})", R"({"itemId": 1, "name": "b"})"},

        {Code::BlankText, Severity::Error, "a blank text",
         "A title, name, icon or controller is empty or consists of blanks: the client shows nothing, or finds "
         "nothing.",
         R"("funcTitle": " ")", R"("funcTitle": "主机信息")"},
        {Code::TextAmongBlanks, Severity::Warning, "blanks around a text",
         "The plugin keeps blanks at the beginning and the end; a look-up by the text without them finds nothing.",
         R"("subFuncClassName": "ITavHostInfoController ")", R"("subFuncClassName": "ITavHostInfoController")"},
        {Code::HiddenCharacter, Severity::Error, "a character that nobody sees",
         "The text holds a control character, a character without a width, one that turns the direction of writing, or "
         "half a character. What is shown is not what is written.",
         R"("name": "a\u202eb")", R"("name": "ab")"},
        {Code::ByteOrderMark, Severity::Note, "a byte order mark",
         "The plugin passes over the mark at the beginning of a text. JSON has none, and other readers refuse it.",
         "a file saved as \"UTF-8 with signature\"", "the same file saved as UTF-8"},
        {Code::LenientText, Severity::Warning, "a text or number that JSON forbids",
         "In a string JSON has no line ends, tabs or other control characters, and no backslash before a character "
         "that "
         "needs none; in a number it has a digit on both sides of the point. The plugin's reader takes them all the "
         "same.",
         R"("name": "C:\data")", R"("name": "C:\\data")"},

        {Code::UnknownEntryType, Severity::Error, "an unknown function or page type",
         "The plugin knows the types by their keys, case included. Any other text is stored as -1.",
         R"("subFuncType": "SubFunc_ServerResourceInfo")", R"("subFuncType": "SubFunc_serverResourceInfo")"},
        {Code::QualifiedEntryType, Severity::Warning, "a qualified key of a type",
         "The plugin takes a key with its class before it, but that is not how keys are written.",
         R"("funcType": "CTavFuncTypeHeader::Func_HostInfo")", R"("funcType": "Func_HostInfo")"},
        {Code::EntryTypeNone, Severity::Error, "the type that stands for none",
         "Type 0 is what a look-up without a result returns, so the entry looks like one that is not there.",
         R"("funcType": "Func_None")", R"("funcType": "Func_HostInfo")"},
        {Code::EmptyCatalogue, Severity::Error, "an empty catalogue", "The list has no entry.", "[]",
         R"([{"funcType": "Func_HostInfo", …}])"},
        {Code::NestedBesidePages, Severity::Error, "nested functions beside pages",
         "Where an entry has pages, the plugin does not read its nested functions.",
         R"({"funcType": "Func_HostInfo", …, "subFunList": […], "funcList": […]})",
         R"({"funcType": "Func_HostInfo", …, "subFunList": […]}, {"funcType": "Func_HostInfo", …, "funcList": […]})"},
        {Code::ParentNotRead, Severity::Warning, "a parent that is not read",
         "The plugin reads the page from which a page is opened only where \"subFuncHasParent\" is false.",
         R"("realParentType": "SubFunc_LogAudit")",
         R"("subFuncHasParent": false, "realParentType": "SubFunc_LogAudit")"},
        {Code::NestedInItself, Severity::Error, "a function nested in itself",
         "An entry has the type of one that it is nested in. A client that builds its menu by the types of parents "
         "comes to no end.",
         R"({"funcType": "Func_HostInfo", …, "funcList": [{"funcType": "Func_HostInfo", …}]})",
         R"({"funcType": "Func_HostInfo", …, "funcList": [{"funcType": "Func_SystemAudit", …}]})"},
        {Code::FunctionTwice, Severity::Warning, "one function type with two titles or icons",
         "A later entry of a type continues the first. The title and icon of the type are those of the first.",
         R"({"funcType": "Func_HostInfo", "funcTitle": "A", …}, {"funcType": "Func_HostInfo", "funcTitle": "B", …})",
         R"({"funcType": "Func_HostInfo", "funcTitle": "A", …}, {"funcType": "Func_SystemAudit", "funcTitle": "B", …})"},
        {Code::PageTwice, Severity::Error, "one page type twice",
         "A page is looked up by its type, which finds the first: the other one is shown, but opens the first.",
         R"({"subFuncType": "SubFunc_LogAudit", …}, {"subFuncType": "SubFunc_LogAudit", …})",
         R"({"subFuncType": "SubFunc_LogAudit", …}, {"subFuncType": "SubFunc_SelfProtect", …})"},
        {Code::ParentMissing, Severity::Error, "a parent that does not exist",
         "The page from which a page is opened is not in the catalogue, or disabled.",
         R"("subFuncHasParent": false, "realParentType": "SubFunc_ObjectSetting")",
         "the same, and a page of the type SubFunc_ObjectSetting"},

        {Code::IconWithoutPicture, Severity::Error, "an icon without a picture",
         "No picture directory of the installation holds a picture of this name, in upper or lower case alike.",
         R"("funcIcon": "hostIcom")", R"("funcIcon": "hostIcon", with hostIcon.png in a picture directory)"},
        {Code::IconNotAName, Severity::Error, "an icon with a suffix or a directory",
         "A picture is looked up by its name before the first dot, apart from its directory: a text with a dot or a "
         "slash finds none.",
         R"("funcIcon": "hostIcon.png")", R"("funcIcon": "hostIcon")"},
        {Code::NoVisiblePage, Severity::Error, "a catalogue without a page",
         "Every page is disabled, or no entry has one. There is nothing to open.",
         R"([{"funcType": "Func_HostInfo", …, "subFunList": []}])",
         R"([{"funcType": "Func_HostInfo", …, "subFunList": [{"subFuncType": "SubFunc_serverResourceInfo", …}]}])"},
        {Code::ParentInCircle, Severity::Error, "pages opened from each other in a circle",
         "A page names itself as the one from which it is opened, or several name each other. No way leads to them, "
         "and "
         "a client that goes up to the first comes to no end.",
         R"({"subFuncType": "SubFunc_LogAudit", …, "realParentType": "SubFunc_LogAudit"})",
         R"({"subFuncType": "SubFunc_LogAudit", …, "realParentType": "SubFunc_SelfProtect"})"},
        {Code::PageWithoutController, Severity::Warning, "a page whose controller nobody installs",
         "There are page plugins in the installation, and none of them registers the controller that the page names. "
         "Nothing is said where there are none, since the client may bring the controllers itself.",
         R"("subFuncClassName": "ITavHostInfoControler")", R"("subFuncClassName": "ITavHostInfoController")"},

        {Code::IdTwice, Severity::Error, "one id twice",
         "The plugin keeps the check items by their ids, the last of each. What is no id counts as 0.",
         R"({"itemId": 101, …}, {"itemId": 101, …})", R"({"itemId": 101, …}, {"itemId": 102, …})"},
        {Code::NoCheckItem, Severity::Error, "an empty list of check items", "The list has no item.",
         R"({"enableConfig": []})", R"({"enableConfig": [{"itemId": 101, …}]})"},
        {Code::ButtonTextNotRead, Severity::Warning, "a button text that is not read",
         "The plugin reads the text of a button only where the type is 3.", R"("type": 1, "btntext": "查看详情")",
         R"("type": 3, "btntext": "查看详情")"},
        {Code::NoButtonText, Severity::Error, "a button without text",
         "With type 3 an item has a button, and nothing stands on it.", R"("type": 3)",
         R"("type": 3, "btntext": "查看详情")"},

        {Code::NoScriptNamed, Severity::Error, "no script",
         "The plugin puts the script directory before the text, and hands out the directory itself.",
         R"("checkValueScript": "")", R"("checkValueScript": "/check.sh")"},
        {Code::NoLeadingSlash, Severity::Error, "a script without a slash before it",
         "The plugin puts the script directory before the text, and nothing between them.",
         R"("checkValueScript": "check.sh")", R"("checkValueScript": "/check.sh")"},
        {Code::ScriptMissing, Severity::Error, "a script that does not exist",
         "No file in the script directory has this name. A blank belongs to the name: arguments cannot be given.",
         R"("checkValueScript": "/check.sh --all")", R"("checkValueScript": "/check-all.sh")"},
        {Code::ScriptNotAFile, Severity::Error, "a script that is no file", "A directory, a pipe or a device.",
         R"("checkValueScript": "/folder")", R"("checkValueScript": "/folder/check.sh")"},
        {Code::ScriptNotExecutable, Severity::Error, "a script that nobody may execute",
         "Any execute permission will do: the agent that runs the checks is another user than the one who looks.",
         "-rw-r--r-- check.sh", "-rwxr-xr-x check.sh"},
        {Code::ScriptOutside, Severity::Error, "a script outside of the script directory",
         "The name leads out of the directory by \"..\", or a link does. Only what lies in the directory is guarded "
         "like "
         "the rest of the installation.",
         R"("checkValueScript": "/../check.sh")", R"("checkValueScript": "/check.sh")"},
        {Code::ScriptEmpty, Severity::Error, "an empty script",
         "A shell takes an empty script for one that succeeds, whatever the machine is like.", "check.sh of 0 bytes",
         "#!/bin/sh\n…"},
        {Code::ScriptLineEnd, Severity::Error, "a script with another system's line ends",
         "The carriage return belongs to the interpreter's name, and there is no such program.",
         "#!/bin/sh, a carriage return, a line feed", "#!/bin/sh, a line feed"},
        {Code::NoInterpreter, Severity::Error, "a script without interpreter",
         "The first line names no program, or one that is not there. A system root without any programs is not asked "
         "for one.",
         "#!/usr/bin/zsh", "#!/bin/sh"},
        {Code::SlashAtEnd, Severity::Error, "a slash too many",
         "With a slash at its end, the name can only be that of a directory.", R"("checkValueScript": "/check.sh/")",
         R"("checkValueScript": "/check.sh")"},
        {Code::ScriptWithDirectory, Severity::Error, "a script with its directory",
         "The plugin puts the script directory before the text, also where it stands there already, or where the text "
         "is a URL.",
         R"("checkValueScript": "/opt/tavsec/script/baselineScript/check.sh")", R"("checkValueScript": "/check.sh")"},
        {Code::NoScriptDirectory, Severity::Error, "no script directory",
         "Below the system root there is no script directory, so that no item can be checked. A list of check items "
         "that is checked by itself wants --root.",
         "tavctl baseline check baseline.json", "tavctl baseline check baseline.json --root DIR"},

        {Code::PictureKeyTwice, Severity::Error, "one picture key fought over",
         "A picture's key is its directory's name and its own name before the first dot, both upper-cased. Of several "
         "files with one key the plugin holds the one that it loads last.",
         "icon.hover.png, icon.png", "iconHover.png, icon.png"},
        {Code::PictureLeftToChance, Severity::Error, "names that differ in case alone",
         "The plugin loads a directory's files in the order of their names, without regard to case. Which of these it "
         "loads last, and holds, is left to chance.",
         "icon.png, Icon.png", "icon.png, iconLarge.png"},
        {Code::PictureUndecodable, Severity::Error, "a picture that cannot be decoded",
         "The plugin holds an empty picture for its key.", "a text file called icon.png", "a PNG picture"},
        {Code::PictureNotAFile, Severity::Error, "a picture that is no file",
         "A pipe or a device lies in a picture's place. The plugin holds an empty picture for its key.",
         "prw-r--r-- icon.png", "-rw-r--r-- icon.png"},
        {Code::PictureDirectoryInside, Severity::Warning, "a directory inside a picture directory",
         "The plugin does not scan it, unless its name ends as those of pictures do, and it holds pictures.",
         "pictures/navigation/large/", "pictures/navigationLarge/"},
        {Code::PictureOutside, Severity::Warning, "a picture outside of every picture directory",
         "The client appends the directories in /opt/tavsec/pictures, not that place itself.", "pictures/icon.png",
         "pictures/navigation/icon.png"},
        {Code::NoPictureDirectory, Severity::Error, "no picture directory",
         "In /opt/tavsec/pictures there is no directory, or that place is missing: pages have no pictures.",
         "/opt/tavsec/pictures/", "/opt/tavsec/pictures/navigation/hostIcon.png"},

        {Code::PictureOfOtherSuffix, Severity::Warning, "a picture of another suffix",
         "The plugin takes files whose names end in \".png\", in upper or lower case alike. Beside a PNG picture of "
         "the "
         "same name the other one is not meant for it, and no finding.",
         "icon.svg", "icon.svg, icon.png"},
        {Code::PictureHidden, Severity::Warning, "a hidden picture",
         "The plugin passes over files whose names begin with a dot, and the client over such picture directories.",
         ".icon.png", "icon.png"},
        {Code::PictureLinkDangling, Severity::Error, "a link to no picture",
         "What the link names, a picture or a picture directory, does not exist, and is passed over.",
         "icon.png -> gone.png", "icon.png -> hostIcon.png"},
        {Code::EmptyPictureDirectory, Severity::Warning, "a picture directory without pictures",
         "There is no file in it that the plugin takes.", "pictures/navigation/", "pictures/navigation/hostIcon.png"},
        {Code::BlankInPictureName, Severity::Warning, "a blank at the edge of a picture's name",
         "The blank belongs to the key, and a look-up without it finds nothing.", "\"icon .png\"", "\"icon.png\""},
        {Code::PictureOfOtherFormat, Severity::Warning, "a picture of another format",
         "The file is called PNG and is something else. The plugin decodes it where a decoder for that is installed.",
         "a JPEG picture called icon.png", "a PNG picture called icon.png"},
        {Code::PictureTooLarge, Severity::Error, "a picture beyond measure",
         "The header announces more than 16 million pixels. The plugin decodes every picture when a directory is "
         "appended, at four bytes a pixel: 30000 by 30000 pixels take 3.4 GiB. The picture was not decoded.",
         "icon.png of 30000 × 30000 pixels", "icon.png of 48 × 48 pixels"},

        {Code::NoPluginFile, Severity::Error, "no plugin", "There is no file where the plugin is looked for.",
         "--plugin libTavDataPlugin", "--plugin libTavDataPlugin.so"},
        {Code::PluginNotAFile, Severity::Error, "a plugin that is no file", "A directory, a pipe or a device.",
         "--plugin /opt/tavsec/plugins", "--plugin /opt/tavsec/plugins/libTavDataPlugin.so"},
        {Code::PluginNotALibrary, Severity::Error, "a plugin that is no shared library", "The file is something else.",
         "--plugin CMakeLists.txt", "--plugin libTavDataPlugin.so"},
        {Code::PluginCutOff, Severity::Error, "a plugin that is cut off",
         "The file ends before what its headers announce, as after a copy that was interrupted.",
         "libTavDataPlugin.so of 1 MiB", "libTavDataPlugin.so of 2 MiB"},
        {Code::PluginForOtherMachine, Severity::Error, "a plugin for another machine",
         "It was built for another architecture than the program that looks at it.", "a plugin for AArch64 on x86-64",
         "a plugin for x86-64 on x86-64"},
        {Code::PluginOfOtherWordSize, Severity::Error, "a plugin of another word size",
         "It was built for words of another size than the program that looks at it.", "a plugin of 32 bits",
         "a plugin of 64 bits"},
        {Code::NotAPlugin, Severity::Error, "a library that is no Qt plugin",
         "A shared library without the data that Qt looks for in a plugin.", "libQt5Core.so.5", "libTavDataPlugin.so"},
        {Code::OtherPlugin, Severity::Error, "another Qt plugin",
         "Its identifier is another one than that which the client asks for.", "libqoffscreen.so",
         "libTavDataPlugin.so"},
        {Code::PluginOfOtherQt, Severity::Error, "a plugin built with another Qt",
         "Qt loads plugins of its own or an earlier minor version, and of its own major version.",
         "built with Qt 6.2, run by Qt 5.15", "built with Qt 5.15, run by Qt 5.15"},
        {Code::PluginLacksLibrary, Severity::Error, "a plugin that lacks a library",
         "A library that the plugin was linked with is not installed, or not where the loader looks.",
         "without libTavCommon.so.1", "with libTavCommon.so.1"},
        {Code::PluginLacksSymbol, Severity::Error, "a plugin that lacks a symbol",
         "A library that the plugin was linked with is another version than the one that it was built with.",
         "built with a later libTavCommon", "built with the libTavCommon that is installed"},
        {Code::PluginNotLoadable, Severity::Error, "a plugin that cannot be loaded",
         "For another reason of the dynamic linker, which the finding has.", "a library of the plugin is damaged",
         "all libraries of the plugin are whole"},
        {Code::PluginWithoutInterface, Severity::Error, "a plugin without the interface",
         "The plugin has the right identifier, but its root object is none that registers managers.",
         "class Plugin : public QObject", "class Plugin : public QObject, public ITavDataPlugin"},
        {Code::PluginWithOtherManagers, Severity::Error, "a plugin with other managers",
         "The plugin does not register every manager that pages look up.", "registers no managers",
         "registers the fifteen managers"},
        {Code::PluginCrashes, Severity::Error, "a plugin that crashes",
         "The process in which the plugin was loaded did not come to the end of having it register its managers: the "
         "plugin crashed, ended the program, or let an exception out.",
         "an access to memory that is not there", "registers the fifteen managers"},
        {Code::PluginHangs, Severity::Error, "a plugin that hangs",
         "Loading the plugin and having it register its managers takes a moment. After ten seconds the process in "
         "which "
         "that was tried was ended.",
         "a loop without end", "registers the fifteen managers"},
        {Code::PluginNotTried, Severity::Note, "a plugin that cannot be tried here",
         "The plugin was built for the machine of the system root, which is another one than this. Whether it can be "
         "loaded there and registers its managers is not known.",
         "a system root for AArch64, checked on x86-64", "the same, checked on AArch64"},
        {Code::PluginOfOtherName, Severity::Error, "a plugin with a wrong name",
         "The client looks for libTavDataPlugin.so. In its place there is a file of another name that is the data "
         "plugin.",
         "/opt/tavsec/plugins/TavDataPlugin.so", "/opt/tavsec/plugins/libTavDataPlugin.so"},
        {Code::NoConfigurationFile, Severity::Error, "a missing configuration file",
         "An installation has a catalogue and a list of check items.", "/etc/tavsec.d/",
         "/etc/tavsec.d/funcTypeConfig.json"},

        {Code::NotReadable, Severity::Error, "not readable",
         "The file exists, but whoever looks may not read it, or the disk does not give it. What is in it was not "
         "checked.",
         "-rw------- root", "-rw-r--r-- root"},
        {Code::WritableByOthers, Severity::Error, "writable by others",
         "Somebody else than the owner may change the file, or put another in its place. The client shows it, or the "
         "agent runs it with its own rights. A group that is the owner's alone is not meant, nor is a directory in "
         "which each may change but his own, unless the client takes all that lies in it. Some pipelines check their "
         "files out like that: there it can be left out with --ignore.",
         "-rwxrwxrwx check.sh", "-rwxr-xr-x check.sh"},
        {Code::OwnedByStranger, Severity::Error, "owned by a stranger",
         "The owner is neither the administrator nor the owner of the whole system root. A configuration file that is "
         "not installed may also belong to whoever checks it, and to the owner of the directory that it lies in.",
         "-rw-r--r-- guest", "-rw-r--r-- root"},
        {Code::NoProcessFiles, Severity::Error, "no files of processes",
         "/proc is not mounted on the machine that is checked. What pages show of it is read there.", "/proc/",
         "/proc/, with \"mount -t proc proc /proc\""},

        {Code::NoScenario, Severity::Error, "no scenario",
         "The first line of a scenario is an object with the key \"tavScenario\", which is the version of its form.",
         R"({"title": "a day"})", R"({"tavScenario": 1, "title": "a day"})"},
        {Code::ScenarioLine, Severity::Error, "a line that is not read",
         "Each line of a scenario is one JSON object, of 32 MiB at most. It is read as strictly as JSON is written.",
         R"({"page": "SubFunc_LogAudit",})", R"({"page": "SubFunc_LogAudit"})"},
        {Code::ScenarioLineCut, Severity::Error, "a line that is cut",
         "The file ends within its last line, as when it was not written to its end.", R"({"page": "SubFunc_Log)",
         R"({"page": "SubFunc_LogAudit"})"},
        {Code::ScenarioKey, Severity::Error, "keys that a line does not have",
         "A key of the line is unknown, missing, or stands there twice.",
         R"({"manager": "ITavNetControlMgr", "operation": "getState"})",
         R"({"manager": "ITavNetControlMgr", "operation": "getState", "arguments": []})"},
        {Code::NoSuchCall, Severity::Error, "a call that there is none of",
         "No manager has this name, the manager has no such operation, or no page is of this type.",
         R"({"page": "SubFunc_LogAudits"})", R"({"page": "SubFunc_LogAudit"})"},
        {Code::ScenarioArguments, Severity::Error, "arguments that do not fit",
         "The operation takes other arguments: another number of them, of another type, out of range, or fields of "
         "other names.",
         R"({"manager": "ITavNetControlMgr", "operation": "setNetCount", "arguments": ["two"]})",
         R"({"manager": "ITavNetControlMgr", "operation": "setNetCount", "arguments": [{}]})"},
        {Code::ScenarioTime, Severity::Error, "a time that cannot be",
         "\"at\" is in seconds from the beginning, and never falls from line to line.",
         "{\"at\": 2, \"page\": \"SubFunc_LogAudit\"}\n{\"at\": 1, \"page\": \"SubFunc_LogAudit\"}",
         "{\"at\": 1, \"page\": \"SubFunc_LogAudit\"}\n{\"at\": 2, \"page\": \"SubFunc_LogAudit\"}"},
        {Code::ScenarioThread, Severity::Error, "a thread that cannot be",
         "Calls are made on the threads agent, agent2 to agent8, and gui, those of the picture manager on gui alone.",
         R"({"thread": "agent9", "page": "SubFunc_LogAudit"})", R"({"thread": "agent8", "page": "SubFunc_LogAudit"})"},
        {Code::ScenarioReturns, Severity::Error, "what is never returned",
         "\"returns\" is what the call must return when a play is checked. The operation cannot return this.",
         R"({"manager": "ITavNetControlMgr", "operation": "getState", "arguments": [], "returns": "on"})",
         R"({"manager": "ITavNetControlMgr", "operation": "getState", "arguments": [], "returns": {}})"},
        {Code::ScenarioIndeterminate, Severity::Error, "a value that no line has set",
         "Until its setter has been called, the operation returns whatever the memory holds.",
         R"({"manager": "ITavHostInfoMgr", "operation": "getResourceInfo", "arguments": []})",
         "{\"manager\": \"ITavHostInfoMgr\", \"operation\": \"setResourceInfo\", \"arguments\": [{}]}\n"
         R"({"manager": "ITavHostInfoMgr", "operation": "getResourceInfo", "arguments": []})"},
    };
    return kinds;
}

const FindingKind &kindOf(FindingCode code)
{
    const std::vector<FindingKind> &kinds = findingKinds();
    return *std::find_if(kinds.begin(), kinds.end(), [code](const FindingKind &kind) { return kind.code == code; });
}

const FindingKind *kindNamed(const QString &name)
{
    const std::vector<FindingKind> &kinds = findingKinds();
    const auto kind = std::find_if(kinds.begin(), kinds.end(),
                                   [&name](const FindingKind &one) { return one.name() == name.toUpper(); });
    return kind == kinds.end() ? nullptr : &*kind;
}

QString FindingKind::name() const
{
    return "TAV" + QString::number(int(code));
}

QString FindingKind::page() const
{
    const auto example
        = [](const QString &title, const QString &text) { return '\n' + title + ":\n\n```\n" + text + "\n```\n"; };
    return "## " + name() + ": " + title + "\n\nSeverity: " + nameOf(severity) + ".\n\n" + explanation + '\n'
        + example("Broken", broken) + example("Mended", mended);
}

QString nameOf(Severity severity)
{
    switch (severity) {
    case Severity::Note:
        return "note";
    case Severity::Warning:
        return "warning";
    case Severity::Error:
        return "error";
    }
    Q_UNREACHABLE();
}
