<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja">
<context>
    <name>common_ui_qt</name>
    <message>
        <source>%1 does not exist.</source>
        <translation>%1 は存在しません。</translation>
    </message>
    <message>
        <source>%1 exists. Do you want to replace it?</source>
        <translation>%1 は既に存在します。置き換えますか?</translation>
    </message>
    <message>
        <source>The name is longer than the file system allows (%1 bytes).</source>
        <translation>名前がファイルシステムの上限 (%1 バイト) を超えています。</translation>
    </message>
    <message>
        <source>The name is longer than the file system allows (%1 characters).</source>
        <translation>名前がファイルシステムの上限 (%1 文字) を超えています。</translation>
    </message>
    <message>
        <source>The folder %1 does not exist.</source>
        <translation>フォルダー %1 は存在しません。</translation>
    </message>
    <message>
        <source>%1 is not a folder.</source>
        <translation>%1 はフォルダーではありません。</translation>
    </message>
    <message>
        <source>File %1 already exists. Do you want to replace it?</source>
        <translation>ファイル %1 は既に存在します。置き換えますか?</translation>
    </message>
    <message>
        <source>Unable to save file %1, check access permissions for the file and the parent directory. Do you want to try again and choose a different location?</source>
        <translation>ファイル %1 を保存できません。ファイルと親フォルダーのアクセス権を確認してください。別の場所を選んでやり直しますか?</translation>
    </message>
    <message>
        <source>Unable to access file %1: %2. Do you want to try again and choose a different location?</source>
        <translation>ファイル %1 にアクセスできません: %2。別の場所を選んでやり直しますか?</translation>
    </message>
    <message>
        <source>More ways to save</source>
        <translation>その他の保存方法</translation>
    </message>
    <message>
        <source>More ways to open</source>
        <translation>その他の開き方</translation>
    </message>
</context>
</TS>
