<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es">
<context>
    <name>common_ui_qt</name>
    <message>
        <source>%1 does not exist.</source>
        <translation>%1 no existe.</translation>
    </message>
    <message>
        <source>%1 exists. Do you want to replace it?</source>
        <translation>%1 ya existe. ¿Desea reemplazarlo?</translation>
    </message>
    <message>
        <source>The name is longer than the file system allows (%1 bytes).</source>
        <translation>El nombre es más largo de lo que permite el sistema de archivos (%1 bytes).</translation>
    </message>
    <message>
        <source>The name is longer than the file system allows (%1 characters).</source>
        <translation>El nombre es más largo de lo que permite el sistema de archivos (%1 caracteres).</translation>
    </message>
    <message>
        <source>The folder %1 does not exist.</source>
        <translation>La carpeta %1 no existe.</translation>
    </message>
    <message>
        <source>%1 is not a folder.</source>
        <translation>%1 no es una carpeta.</translation>
    </message>
    <message>
        <source>File %1 already exists. Do you want to replace it?</source>
        <translation>El archivo %1 ya existe. ¿Desea reemplazarlo?</translation>
    </message>
    <message>
        <source>Unable to save file %1, check access permissions for the file and the parent directory. Do you want to try again and choose a different location?</source>
        <translation>No se puede guardar el archivo %1. Compruebe los permisos de acceso del archivo y de la carpeta que lo contiene. ¿Desea volver a intentarlo y elegir otra ubicación?</translation>
    </message>
    <message>
        <source>Unable to access file %1: %2. Do you want to try again and choose a different location?</source>
        <translation>No se puede acceder al archivo %1: %2. ¿Desea volver a intentarlo y elegir otra ubicación?</translation>
    </message>
    <message>
        <source>More ways to save</source>
        <translation>Otras formas de guardar</translation>
    </message>
    <message>
        <source>More ways to open</source>
        <translation>Otras formas de abrir</translation>
    </message>
</context>
</TS>
