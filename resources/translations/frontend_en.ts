<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="ru_RU">
<context>
    <name>AbstractBackendCommunicator</name>
    <message>
        <source>Некорректный адрес сервера (%1)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>BrightnessControl</name>
    <message>
        <source>Авто режим</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1%</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ConnectionDisplayButton</name>
    <message>
        <source>Подключение...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Отключен</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Данные не обновляются</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Подключения</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ConnectionsDrawer</name>
    <message>
        <source>%1, %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Удалить</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Добавить подключение</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ConnectionsListModel</name>
    <message>
        <source>Не удалось сохранить подключение</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Не удалось удалить подключение</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Не удалось сохранить вид подключения</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Не удалось открыть сохранённые подключения</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Добавленные подключения будут действовать до выхода из программы. Файл: %1. Причина: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Файл: %1. Причина: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DesktopPage</name>
    <message>
        <source>Объект пуст</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Не создано ни одного объекта</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DevicesListModel</name>
    <message>
        <source>Network device-%1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ошибка</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ErrorPopup</name>
    <message>
        <source>Ок</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>JsonBackendCommunicator</name>
    <message>
        <source>Некорректный адрес сервера (%1)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Внимание! Версия клиента (%1) новее, чем версия сервера (%2). Для продолжения работы, воспользуйтесь более старой версией программы или обновите прошивку сервера.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Внимание! Версия клиента (%1) новее, чем версия сервера. Для продолжения работы, воспользуйтесь более старой версией программы или обновите прошивку сервера.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Несовместимая версия сервера</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Файл резервной копии поврежден</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LoadingScreen</name>
    <message>
        <source>Сервер не отвечает больше %1 %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>минут</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>секунд</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Сервер отключен</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Подключение...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Переподключиться</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Отключиться</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Не создано ни одного подключения к серверу</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Создать подключение</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Model::ShopPart</name>
    <message>
        <source>Объект</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PlaceholderControl</name>
    <message>
        <source>Добавить</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ScaleSlider</name>
    <message>
        <source>Масштаб -10%</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1%</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Масштаб 100%</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Масштаб +10%</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TabSettingsWindow</name>
    <message>
        <source>Название</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Адрес сервера</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Логин</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Пароль</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>UsersListModel</name>
    <message>
        <source>Администратор</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Пользователь</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZoneTile</name>
    <message>
        <source>%1%, ручной режим</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1%</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(Ручной режим)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Добавление подключения</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Отмена</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Добавить</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
