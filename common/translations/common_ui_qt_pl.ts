<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl">
<context>
    <name>common_ui_qt</name>
    <message>
        <source>%1 does not exist.</source>
        <translation>%1 nie istnieje.</translation>
    </message>
    <message>
        <source>%1 exists. Do you want to replace it?</source>
        <translation>%1 już istnieje. Czy chcesz go zastąpić?</translation>
    </message>
    <message>
        <source>The name is longer than the file system allows (%1 bytes).</source>
        <translation>Nazwa jest dłuższa, niż pozwala na to system plików (limit bajtów: %1).</translation>
    </message>
    <message>
        <source>The name is longer than the file system allows (%1 characters).</source>
        <translation>Nazwa jest dłuższa, niż pozwala na to system plików (limit znaków: %1).</translation>
    </message>
    <message>
        <source>The folder %1 does not exist.</source>
        <translation>Folder %1 nie istnieje.</translation>
    </message>
    <message>
        <source>%1 is not a folder.</source>
        <translation>%1 nie jest folderem.</translation>
    </message>
    <message>
        <source>File %1 already exists. Do you want to replace it?</source>
        <translation>Plik %1 już istnieje. Czy chcesz go zastąpić?</translation>
    </message>
    <message>
        <source>Unable to save file %1, check access permissions for the file and the parent directory. Do you want to try again and choose a different location?</source>
        <translation>Nie można zapisać pliku %1. Sprawdź prawa dostępu do pliku i do folderu nadrzędnego. Czy chcesz spróbować ponownie i wybrać inne miejsce?</translation>
    </message>
    <message>
        <source>Unable to access file %1: %2. Do you want to try again and choose a different location?</source>
        <translation>Nie można uzyskać dostępu do pliku %1: %2. Czy chcesz spróbować ponownie i wybrać inne miejsce?</translation>
    </message>
    <message>
        <source>More ways to save</source>
        <translation>Więcej sposobów zapisu</translation>
    </message>
    <message>
        <source>More ways to open</source>
        <translation>Więcej sposobów otwierania</translation>
    </message>
</context>
</TS>
