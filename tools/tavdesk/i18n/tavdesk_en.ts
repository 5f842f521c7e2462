<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>ValueList</name>
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
</TS>
