<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name>common_ui_qt</name>
    <message>
        <source>%1 does not exist.</source>
        <translation>%1 gibt es nicht.</translation>
    </message>
    <message>
        <source>%1 exists. Do you want to replace it?</source>
        <translation>%1 gibt es bereits. Möchten Sie die Datei ersetzen?</translation>
    </message>
    <message>
        <source>The name is longer than the file system allows (%1 bytes).</source>
        <translation>Der Name ist länger, als das Dateisystem erlaubt (%1 Bytes).</translation>
    </message>
    <message>
        <source>The name is longer than the file system allows (%1 characters).</source>
        <translation>Der Name ist länger, als das Dateisystem erlaubt (%1 Zeichen).</translation>
    </message>
    <message>
        <source>The folder %1 does not exist.</source>
        <translation>Den Ordner %1 gibt es nicht.</translation>
    </message>
    <message>
        <source>%1 is not a folder.</source>
        <translation>%1 ist kein Ordner.</translation>
    </message>
    <message>
        <source>File %1 already exists. Do you want to replace it?</source>
        <translation>Die Datei %1 gibt es bereits. Möchten Sie sie ersetzen?</translation>
    </message>
    <message>
        <source>Unable to save file %1, check access permissions for the file and the parent directory. Do you want to try again and choose a different location?</source>
        <translation>Die Datei %1 kann nicht gespeichert werden. Prüfen Sie die Zugriffsrechte für die Datei und den übergeordneten Ordner. Möchten Sie es noch einmal versuchen und einen anderen Ort wählen?</translation>
    </message>
    <message>
        <source>Unable to access file %1: %2. Do you want to try again and choose a different location?</source>
        <translation>Auf die Datei %1 kann nicht zugegriffen werden: %2. Möchten Sie es noch einmal versuchen und einen anderen Ort wählen?</translation>
    </message>
    <message>
        <source>More ways to save</source>
        <translation>Weitere Möglichkeiten zu speichern</translation>
    </message>
    <message>
        <source>More ways to open</source>
        <translation>Weitere Möglichkeiten zu öffnen</translation>
    </message>
</context>
</TS>
