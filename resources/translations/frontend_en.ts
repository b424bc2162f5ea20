<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="ru_RU">
<context>
    <name>AbstractBackendCommunicator</name>
    <message>
        <source>Некорректный адрес сервера (%1)</source>
        <translation>Invalid server address (%1)</translation>
    </message>
</context>
<context>
    <name>ActionsListModel</name>
    <message>
        <source>Новое действие</source>
        <translation>New action</translation>
    </message>
    <message>
        <source>Копия</source>
        <translation>Copy</translation>
    </message>
</context>
<context>
    <name>BrightnessControl</name>
    <message>
        <source>Авто режим</source>
        <translation>Automatic mode</translation>
    </message>
    <message>
        <source>%1%</source>
        <translation>%1%</translation>
    </message>
    <message>
        <source>Яркость %1%</source>
        <translation>Brightness %1%</translation>
    </message>
</context>
<context>
    <name>ButtonsListModel</name>
    <message>
        <source>Кнопка</source>
        <translation>Button</translation>
    </message>
</context>
<context>
    <name>ConnectionDialog</name>
    <message>
        <source>Не удалось сохранить. Возможно, такое подключение уже есть.</source>
        <translation>It could not be saved. There may be such a connection already.</translation>
    </message>
    <message>
        <source>Отмена</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>ConnectionDisplayButton</name>
    <message>
        <source>Подключение...</source>
        <translation>Connecting...</translation>
    </message>
    <message>
        <source>Отключен</source>
        <translation>Disconnected</translation>
    </message>
    <message>
        <source>Данные не обновляются</source>
        <translation>Data is not being updated</translation>
    </message>
    <message>
        <source>Подключения</source>
        <translation>Connections</translation>
    </message>
</context>
<context>
    <name>ConnectionsDrawer</name>
    <message>
        <source>Удалить</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>Добавить подключение</source>
        <translation>Add connection</translation>
    </message>
    <message>
        <source>Подключения</source>
        <translation>Connections</translation>
    </message>
    <message>
        <source>Изменить или удалить</source>
        <translation>Edit or delete</translation>
    </message>
    <message>
        <source>Изменить</source>
        <translation>Edit</translation>
    </message>
</context>
<context>
    <name>ConnectionsListModel</name>
    <message>
        <source>Не удалось сохранить подключение</source>
        <translation>The connection could not be saved</translation>
    </message>
    <message>
        <source>Не удалось удалить подключение</source>
        <translation>The connection could not be deleted</translation>
    </message>
    <message>
        <source>Не удалось сохранить вид подключения</source>
        <translation>The view of the connection could not be saved</translation>
    </message>
    <message>
        <source>Не удалось открыть сохранённые подключения</source>
        <translation>The saved connections could not be opened</translation>
    </message>
    <message>
        <source>Добавленные подключения будут действовать до выхода из программы. Файл: %1. Причина: %2</source>
        <translation>Connections that you add will last until you leave the program. File: %1. Reason: %2</translation>
    </message>
    <message>
        <source>Файл: %1. Причина: %2</source>
        <translation>File: %1. Reason: %2</translation>
    </message>
</context>
<context>
    <name>DefaultActions</name>
    <message>
        <source>Датчик освещенности</source>
        <translation>Light sensor</translation>
    </message>
    <message>
        <source>Действие, если меньше</source>
        <translation>Action when less</translation>
    </message>
    <message>
        <source>Действие, если равно</source>
        <translation>Action when equal</translation>
    </message>
    <message>
        <source>Действие, если больше</source>
        <translation>Action when greater</translation>
    </message>
    <message>
        <source>Целевая освещенность, лк</source>
        <translation>Target illuminance, lx</translation>
    </message>
    <message>
        <source>Нижняя граница мощности, %</source>
        <translation>Lower limit of the power, %</translation>
    </message>
    <message>
        <source>Верхняя граница мощности, %</source>
        <translation>Upper limit of the power, %</translation>
    </message>
    <message>
        <source>Ошибка регулирования, лк</source>
        <translation>Control error, lx</translation>
    </message>
    <message>
        <source>Мощность, %</source>
        <translation>Power, %</translation>
    </message>
    <message>
        <source>Мощность 100%, если освещенность меньше</source>
        <translation>Power 100% when the illuminance is below</translation>
    </message>
    <message>
        <source>Мощность 0%, если освещенность больше</source>
        <translation>Power 0% when the illuminance is above</translation>
    </message>
    <message>
        <source>Датчик контакта</source>
        <translation>Contact sensor</translation>
    </message>
    <message>
        <source>Действие при замыкании</source>
        <translation>Action on closing</translation>
    </message>
    <message>
        <source>Действие при размыкании</source>
        <translation>Action on opening</translation>
    </message>
    <message>
        <source>Свойство</source>
        <translation>Property</translation>
    </message>
    <message>
        <source>Константа</source>
        <translation>Constant</translation>
    </message>
    <message>
        <source>Первое свойство</source>
        <translation>First property</translation>
    </message>
    <message>
        <source>Второе свойство</source>
        <translation>Second property</translation>
    </message>
    <message>
        <source>Действие</source>
        <translation>Action</translation>
    </message>
    <message>
        <source>Задержка, с</source>
        <translation>Delay, s</translation>
    </message>
</context>
<context>
    <name>DesktopPage</name>
    <message>
        <source>Объект пуст</source>
        <translation>The site is empty</translation>
    </message>
    <message>
        <source>Не создано ни одного объекта</source>
        <translation>No site has been created</translation>
    </message>
    <message>
        <source>Объекты</source>
        <translation>Sites</translation>
    </message>
    <message>
        <source>Нет подключений к серверу</source>
        <translation>No connections to a server</translation>
    </message>
    <message>
        <source>Создать</source>
        <translation>Create</translation>
    </message>
</context>
<context>
    <name>DevicesListModel</name>
    <message>
        <source>Network device-%1</source>
        <translation>Network device-%1</translation>
    </message>
    <message>
        <source>Ошибка</source>
        <translation>Error</translation>
    </message>
</context>
<context>
    <name>ErrorPopup</name>
    <message>
        <source>Ок</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>IndicatorsListModel</name>
    <message>
        <source>Индикатор</source>
        <translation>Indicator</translation>
    </message>
</context>
<context>
    <name>JsonBackendCommunicator</name>
    <message>
        <source>Некорректный адрес сервера (%1)</source>
        <translation>Invalid server address (%1)</translation>
    </message>
    <message>
        <source>Внимание! Версия клиента (%1) новее, чем версия сервера (%2). Для продолжения работы, воспользуйтесь более старой версией программы или обновите прошивку сервера.</source>
        <translation>Attention! The client version (%1) is newer than the server version (%2). To go on, use an older version of the program or update the server firmware.</translation>
    </message>
    <message>
        <source>Внимание! Версия клиента (%1) новее, чем версия сервера. Для продолжения работы, воспользуйтесь более старой версией программы или обновите прошивку сервера.</source>
        <translation>Attention! The client version (%1) is newer than the server version. To go on, use an older version of the program or update the server firmware.</translation>
    </message>
    <message>
        <source>Несовместимая версия сервера</source>
        <translation>Incompatible server version</translation>
    </message>
    <message>
        <source>Файл резервной копии поврежден</source>
        <translation>The backup file is damaged</translation>
    </message>
    <message>
        <source>Не удалось загрузить изображение</source>
        <translation>The picture could not be loaded</translation>
    </message>
    <message>
        <source>Не удалось загрузить 3D объект</source>
        <translation>The 3D object could not be loaded</translation>
    </message>
</context>
<context>
    <name>LoadingScreen</name>
    <message>
        <source>Сервер не отвечает больше %1 %2</source>
        <translation>The server has not answered for more than %1 %2</translation>
    </message>
    <message>
        <source>минут</source>
        <translation>minutes</translation>
    </message>
    <message>
        <source>секунд</source>
        <translation>seconds</translation>
    </message>
    <message>
        <source>Сервер отключен</source>
        <translation>The server is disconnected</translation>
    </message>
    <message>
        <source>Подключение...</source>
        <translation>Connecting...</translation>
    </message>
    <message>
        <source>Переподключиться</source>
        <translation>Reconnect</translation>
    </message>
    <message>
        <source>Отключиться</source>
        <translation>Disconnect</translation>
    </message>
    <message>
        <source>Не создано ни одного подключения к серверу</source>
        <translation>No connection to a server has been created</translation>
    </message>
    <message>
        <source>Создать подключение</source>
        <translation>Create connection</translation>
    </message>
</context>
<context>
    <name>Model::ShopPart</name>
    <message>
        <source>Объект</source>
        <translation>Site</translation>
    </message>
</context>
<context>
    <name>PlaceholderControl</name>
    <message>
        <source>Добавить</source>
        <translation>Add</translation>
    </message>
</context>
<context>
    <name>RadioDevicesListModel</name>
    <message>
        <source>MRF: %2 Ch: %3</source>
        <translation>MRF: %2 Ch: %3</translation>
    </message>
    <message>
        <source>LoRa %1: %2 F: %3 SF: %4</source>
        <translation>LoRa %1: %2 F: %3 SF: %4</translation>
    </message>
    <message>
        <source>RS485 %1 (%2): %3 SPD: %4</source>
        <translation>RS485 %1 (%2): %3 SPD: %4</translation>
    </message>
    <message>
        <source>Выкл</source>
        <translation>Off</translation>
    </message>
</context>
<context>
    <name>ScaleSlider</name>
    <message>
        <source>Масштаб -10%</source>
        <translation>Zoom out 10%</translation>
    </message>
    <message>
        <source>%1%</source>
        <translation>%1%</translation>
    </message>
    <message>
        <source>Масштаб 100%</source>
        <translation>Zoom 100%</translation>
    </message>
    <message>
        <source>Масштаб +10%</source>
        <translation>Zoom in 10%</translation>
    </message>
</context>
<context>
    <name>ScheduleDaysListModel</name>
    <message>
        <source>День</source>
        <translation>Day</translation>
    </message>
    <message>
        <source>Копия</source>
        <translation>Copy</translation>
    </message>
</context>
<context>
    <name>SchedulePointsListModel</name>
    <message>
        <source>Отсутствующее устройство</source>
        <translation>Missing device</translation>
    </message>
    <message>
        <source>Устройство: %1</source>
        <translation>Device: %1</translation>
    </message>
    <message>
        <source>Отсутствующая кнопка</source>
        <translation>Missing button</translation>
    </message>
    <message>
        <source>Кнопка: %1</source>
        <translation>Button: %1</translation>
    </message>
    <message>
        <source>Отсутствующий индикатор</source>
        <translation>Missing indicator</translation>
    </message>
    <message>
        <source>Индикатор: %1</source>
        <translation>Indicator: %1</translation>
    </message>
    <message>
        <source>Не задано</source>
        <translation>Not set</translation>
    </message>
    <message>
        <source>Да</source>
        <translation>Yes</translation>
    </message>
    <message>
        <source>Нет</source>
        <translation>No</translation>
    </message>
</context>
<context>
    <name>StandardBlueprints</name>
    <message>
        <source>Установить мощность</source>
        <translation>Set the power</translation>
    </message>
    <message>
        <source>Мощность</source>
        <translation>Power</translation>
    </message>
    <message>
        <source>Перевести в ручной режим</source>
        <translation>Switch to manual mode</translation>
    </message>
    <message>
        <source>Перевести в автоматический режим</source>
        <translation>Switch to automatic mode</translation>
    </message>
    <message>
        <source>Мощность по внутреннему датчику освещенности</source>
        <translation>Power by an indoor light sensor</translation>
    </message>
    <message>
        <source>Датчик освещенности</source>
        <translation>Light sensor</translation>
    </message>
    <message>
        <source>Ошибка регулирования, лк</source>
        <translation>Control error, lx</translation>
    </message>
    <message>
        <source>Целевая освещенность, лк</source>
        <translation>Target illuminance, lx</translation>
    </message>
    <message>
        <source>Нижняя граница мощности, %</source>
        <translation>Lower limit of the power, %</translation>
    </message>
    <message>
        <source>Верхняя граница мощности, %</source>
        <translation>Upper limit of the power, %</translation>
    </message>
    <message>
        <source>Мощность по внешнему датчику освещенности</source>
        <translation>Power by an outdoor light sensor</translation>
    </message>
    <message>
        <source>Мощность 100%, если освещенность меньше</source>
        <translation>Power 100% when the illuminance is below</translation>
    </message>
    <message>
        <source>Мощность 0%, если освещенность больше</source>
        <translation>Power 0% when the illuminance is above</translation>
    </message>
    <message>
        <source>Отладка: все узлы</source>
        <translation>Debugging: all nodes</translation>
    </message>
</context>
<context>
    <name>TabSettingsWindow</name>
    <message>
        <source>Название</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Адрес сервера</source>
        <translation>Server address</translation>
    </message>
    <message>
        <source>Логин</source>
        <translation>Login</translation>
    </message>
    <message>
        <source>Пароль</source>
        <translation>Password</translation>
    </message>
</context>
<context>
    <name>UsersListModel</name>
    <message>
        <source>Администратор</source>
        <translation>Administrator</translation>
    </message>
    <message>
        <source>Пользователь</source>
        <translation>User</translation>
    </message>
</context>
<context>
    <name>ZoneTile</name>
    <message>
        <source>%1%, ручной режим</source>
        <translation>%1%, manual mode</translation>
    </message>
    <message>
        <source>%1%</source>
        <translation>%1%</translation>
    </message>
    <message>
        <source>(Ручной режим)</source>
        <translation>(Manual mode)</translation>
    </message>
    <message>
        <source>Зона без названия</source>
        <translation>Zone without a name</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Добавление подключения</source>
        <translation>New connection</translation>
    </message>
    <message>
        <source>Добавить</source>
        <translation>Add</translation>
    </message>
    <message>
        <source>Изменение подключения</source>
        <translation>Edit connection</translation>
    </message>
    <message>
        <source>Сохранить</source>
        <translation>Save</translation>
    </message>
</context>
</TS>
