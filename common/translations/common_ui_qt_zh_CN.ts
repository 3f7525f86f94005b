<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>common_ui_qt</name>
    <message>
        <source>%1 does not exist.</source>
        <translation>%1 不存在。</translation>
    </message>
    <message>
        <source>%1 exists. Do you want to replace it?</source>
        <translation>%1 已存在。是否要替换它?</translation>
    </message>
    <message>
        <source>The name is longer than the file system allows (%1 bytes).</source>
        <translation>名称超过了文件系统允许的长度(%1 字节)。</translation>
    </message>
    <message>
        <source>The name is longer than the file system allows (%1 characters).</source>
        <translation>名称超过了文件系统允许的长度(%1 个字符)。</translation>
    </message>
    <message>
        <source>The folder %1 does not exist.</source>
        <translation>文件夹 %1 不存在。</translation>
    </message>
    <message>
        <source>%1 is not a folder.</source>
        <translation>%1 不是文件夹。</translation>
    </message>
    <message>
        <source>File %1 already exists. Do you want to replace it?</source>
        <translation>文件 %1 已存在。是否要替换它?</translation>
    </message>
    <message>
        <source>Unable to save file %1, check access permissions for the file and the parent directory. Do you want to try again and choose a different location?</source>
        <translation>无法保存文件 %1。请检查该文件及其上级文件夹的访问权限。是否要重试并选择其他位置?</translation>
    </message>
    <message>
        <source>Unable to access file %1: %2. Do you want to try again and choose a different location?</source>
        <translation>无法访问文件 %1:%2。是否要重试并选择其他位置?</translation>
    </message>
    <message>
        <source>More ways to save</source>
        <translation>其他保存方式</translation>
    </message>
    <message>
        <source>More ways to open</source>
        <translation>其他打开方式</translation>
    </message>
</context>
</TS>
