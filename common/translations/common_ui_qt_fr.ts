<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>common_ui_qt</name>
    <message>
        <source>%1 does not exist.</source>
        <translation>%1 n’existe pas.</translation>
    </message>
    <message>
        <source>%1 exists. Do you want to replace it?</source>
        <translation>%1 existe déjà. Voulez-vous le remplacer ?</translation>
    </message>
    <message>
        <source>The name is longer than the file system allows (%1 bytes).</source>
        <translation>Le nom est plus long que ne l’autorise le système de fichiers (%1 octets).</translation>
    </message>
    <message>
        <source>The name is longer than the file system allows (%1 characters).</source>
        <translation>Le nom est plus long que ne l’autorise le système de fichiers (%1 caractères).</translation>
    </message>
    <message>
        <source>The folder %1 does not exist.</source>
        <translation>Le dossier %1 n’existe pas.</translation>
    </message>
    <message>
        <source>%1 is not a folder.</source>
        <translation>%1 n’est pas un dossier.</translation>
    </message>
    <message>
        <source>File %1 already exists. Do you want to replace it?</source>
        <translation>Le fichier %1 existe déjà. Voulez-vous le remplacer ?</translation>
    </message>
    <message>
        <source>Unable to save file %1, check access permissions for the file and the parent directory. Do you want to try again and choose a different location?</source>
        <translation>Impossible d’enregistrer le fichier %1. Vérifiez les droits d’accès au fichier et au dossier parent. Voulez-vous réessayer et choisir un autre emplacement ?</translation>
    </message>
    <message>
        <source>Unable to access file %1: %2. Do you want to try again and choose a different location?</source>
        <translation>Impossible d’accéder au fichier %1 : %2. Voulez-vous réessayer et choisir un autre emplacement ?</translation>
    </message>
    <message>
        <source>More ways to save</source>
        <translation>Autres façons d’enregistrer</translation>
    </message>
    <message>
        <source>More ways to open</source>
        <translation>Autres façons d’ouvrir</translation>
    </message>
</context>
</TS>
