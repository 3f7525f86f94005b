<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1">
<context>
    <name>common_ui_qt</name>
    <message>
        <source>%1 does not exist.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 exists. Do you want to replace it?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The name is longer than the file system allows (%1 bytes).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The name is longer than the file system allows (%1 characters).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder %1 does not exist.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is not a folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File %1 already exists. Do you want to replace it?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unable to save file %1, check access permissions for the file and the parent directory. Do you want to try again and choose a different location?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unable to access file %1: %2. Do you want to try again and choose a different location?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>More ways to save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>More ways to open</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
