<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>FieldEdit</name>
    <message numerus="yes">
        <source>at most %n byte(s) of UTF-8</source>
        <translation>
            <numerusform>at most %n byte of UTF-8</numerusform>
            <numerusform>at most %n bytes of UTF-8</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FilterBar</name>
    <message numerus="yes">
        <source>%n row(s)</source>
        <translation>
            <numerusform>%n row</numerusform>
            <numerusform>%n rows</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n row(s)</source>
        <translation>
            <numerusform>%1 of %n row</numerusform>
            <numerusform>%1 of %n rows</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message numerus="yes">
        <source>%1 was written without %n refused call(s).</source>
        <translation>
            <numerusform>%1 was written without the refused call.</numerusform>
            <numerusform>%1 was written without the %n refused calls.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Recording</name>
    <message numerus="yes">
        <source>%n call(s) are missing in it</source>
        <translation>
            <numerusform>%n call is missing in it</numerusform>
            <numerusform>%n calls are missing in it</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>WorkStatus</name>
    <message numerus="yes">
        <source>%1: %2 of %n call(s)</source>
        <translation>
            <numerusform>%1: %2 of %n call</numerusform>
            <numerusform>%1: %2 of %n calls</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Recording %1: %n call(s), %2</source>
        <translation>
            <numerusform>Recording %1: %n call, %2</numerusform>
            <numerusform>Recording %1: %n calls, %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n source(s) could not be read</source>
        <translation>
            <numerusform>%n source could not be read</numerusform>
            <numerusform>%n sources could not be read</numerusform>
        </translation>
    </message>
</context>
</TS>
